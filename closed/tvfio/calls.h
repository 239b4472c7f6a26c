// closed/tvfio/calls.h: templates for the module's operations on the lists of the library.
#pragma once

#include "closed/tvfio.h"
#include "closed/tvfio/fileaccess.h"
#include "closed/tvfio/record.h"

#include <new>

namespace tvfio {

/// Stores `result` as the status word of a call.
inline void Answer(int16_t* status, FioStatus result)
{
    if (status != nullptr)
        *status = static_cast<int16_t>(result);
}

/// Runs `work`, which returns a status; bad_alloc becomes a status too, since no exception leaves the module.
template <typename Work>
FioStatus Guarded(Work work)
{
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return Fail(FioStatus::OutOfMemory);
    }
}

/// Copies `text` to `out` with a terminating zero.
[[nodiscard]] FioStatus CopyOut(std::string_view text, char* out, int32_t outSize);

/// Assigns `text` if `rule` allows it.
template <int N>
[[nodiscard]] FioStatus CopyIn(const char* text, const TextRule& rule, FixedText<N>& target)
{
    if (text == nullptr)
        return Fail(FioStatus::MissingArgument);
    if (const FioStatus status = CheckText(text, rule); status != FioStatus::Ok)
        return Fail(status);
    target.Assign(text);
    return FioStatus::Ok;
}

template <typename Value>
[[nodiscard]] FioStatus CopyOut(Value value, std::type_identity_t<Value>* out)
{
    if (out == nullptr)
        return Fail(FioStatus::MissingArgument);
    *out = value;
    return FioStatus::Ok;
}

template <typename Value>
[[nodiscard]] FioStatus CopyIn(Value value, const auto& rule, Value& target)
{
    if (const FioStatus status = CheckField(value, rule); status != FioStatus::Ok)
        return Fail(status);
    target = value;
    return FioStatus::Ok;
}

// List level. The function `Current` returns the current list of each list type.

template <typename List>
void CallClear(int16_t* status)
{
    List::Current().Clear();
    Answer(status, FioStatus::Ok);
}

/// Replaces the current list by what `fill` reads into the empty list. After a failure, also for lack of memory, the
/// current list is empty.
template <typename List, typename Fill>
[[nodiscard]] FioStatus LoadCurrent(Fill fill)
{
    List& list = List::Current();
    list.Clear();
    const FioStatus result = Guarded([&list, &fill] { return fill(list); });
    if (result != FioStatus::Ok)
        list.Clear();
    return result;
}

/// As above, from the contents of a file.
template <typename List>
[[nodiscard]] FioStatus LoadBytes(ByteView file)
{
    return LoadCurrent<List>([file](List& list) { return list.Decode(file); });
}

template <typename List>
void CallLoadFile(int16_t* status, const char* path)
{
    Answer(status, LoadCurrent<List>([path](List& list) {
        Bytes bytes;
        const FioStatus result = ReadFileBytes(path, bytes);
        return result == FioStatus::Ok ? list.Decode(bytes) : result;
    }));
}

template <typename List>
void CallSaveFile(int16_t* status, const char* path)
{
    Answer(status, Guarded([path] { return SaveFileBytes(path, List::Current().Encode()); }));
}

template <typename List>
void CallGetName(int16_t* status, char* out, int32_t outSize)
{
    Answer(status, CopyOut(List::Current().Info.Name.View(), out, outSize));
}

template <typename List>
void CallSetName(int16_t* status, const char* text)
{
    Answer(status, CopyIn(text, kListName, List::Current().Info.Name));
}

template <typename List>
void CallGetDescription(int16_t* status, char* out, int32_t outSize)
{
    Answer(status, CopyOut(List::Current().Info.Description.View(), out, outSize));
}

template <typename List>
void CallSetDescription(int16_t* status, const char* text)
{
    Answer(status, CopyIn(text, kListDescription, List::Current().Info.Description));
}

/// Sets the seven list operations of `Prefix` in the table `api`.
#define FIO_BIND_LIST(api, Prefix, List)                                                                               \
    (api).Prefix##Clear = CallClear<List>;                                                                             \
    (api).Prefix##LoadFile = CallLoadFile<List>;                                                                       \
    (api).Prefix##SaveFile = CallSaveFile<List>;                                                                       \
    (api).Prefix##GetName = CallGetName<List>;                                                                         \
    (api).Prefix##SetName = CallSetName<List>;                                                                         \
    (api).Prefix##GetDescription = CallGetDescription<List>;                                                           \
    (api).Prefix##SetDescription = CallSetDescription<List>

// Record level of the lists with indexed entries.

template <typename Member>
struct MemberType;
template <typename Record, typename Value>
struct MemberType<Value Record::*> {
    using Type = Value;
};
template <auto Member>
using FieldType = typename MemberType<decltype(Member)>::Type;

template <typename List>
void CallGetCapacity(int16_t* status, int16_t* count)
{
    Answer(status, CopyOut<int16_t>(List::kCapacity, count));
}

template <typename List>
void CallIsUsed(int16_t* status, int16_t index, int16_t* used)
{
    if (!List::IsIndex(index))
        return Answer(status, Fail(List::kNoSuchIndex));
    Answer(status, CopyOut<int16_t>(List::Current().Used[static_cast<size_t>(index)] ? 1 : 0, used));
}

template <typename List>
void CallCommit(int16_t* status, int16_t index)
{
    if (!List::IsIndex(index))
        return Answer(status, Fail(List::kNoSuchIndex));
    List::Current().Commit(index);
    Answer(status, FioStatus::Ok);
}

template <typename List, auto Member>
void CallGet(int16_t* status, int16_t index, FieldType<Member>* value)
{
    if (!List::IsIndex(index))
        return Answer(status, Fail(List::kNoSuchIndex));
    Answer(status, CopyOut(List::Current().Records[static_cast<size_t>(index)].*Member, value));
}

template <typename List, auto Member, const auto& Rule>
void CallStage(int16_t* status, FieldType<Member> value)
{
    Answer(status, CopyIn(value, Rule, List::Current().Staged.*Member));
}

template <typename List, auto Member>
void CallGetText(int16_t* status, int16_t index, char* out, int32_t outSize)
{
    if (!List::IsIndex(index))
        return Answer(status, Fail(List::kNoSuchIndex));
    Answer(status, CopyOut((List::Current().Records[static_cast<size_t>(index)].*Member).View(), out, outSize));
}

template <typename List, auto Member, const auto& Rule>
void CallStageText(int16_t* status, const char* text)
{
    Answer(status, CopyIn(text, Rule, List::Current().Staged.*Member));
}

/// Each sets its part of the table.
void BindAntennaCalls(TvFioApi& api);
void BindKfactorCalls(TvFioApi& api);
void BindMemoryCalls(TvFioApi& api);
void BindSuppressCalls(TvFioApi& api);
void BindCorrectionCalls(TvFioApi& api);
void BindLimitCalls(TvFioApi& api);
void BindCheckCalls(TvFioApi& api);

} // namespace tvfio
