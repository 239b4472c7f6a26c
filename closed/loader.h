// closed/loader.h: finds, loads and binds the closed modules in the folder of the executable.
#pragma once

#include "closed/tvfio.h"
#include "closed/tvgen.h"
#include "closed/tvimg.h"
#include "closed/tvlng.h"
#include "closed/tvscpi.h"
#include "closed/tvswp.h"

#include <QString>

#include <array>
#include <optional>

namespace tarvik {

/// The modules in the order of the start-up check, which skips the picture module.
enum class Module { General, Language, Channel, ListStore, Traces, Pictures };

inline constexpr std::array kModulesCheckedAtStart{ Module::General, Module::Language, Module::Channel,
    Module::ListStore, Module::Traces };

/// File name with the platform's suffix, for example "tvgen.so".
QString ModuleFileName(Module module);

/// The outcome of loading a module; true if it is bound.
struct ModuleLoadResult {
    QString Reason; ///< of a failure, with the path of the file; in the words of the system where it has some
    explicit operator bool() const
    {
        return Reason.isEmpty();
    }
};

/// Loads `module` from `folder` and binds its operations. Fails if the file is missing, is not a library, has no
/// `VbLoad`, or refuses the table; earlier bindings then stay valid.
[[nodiscard]] ModuleLoadResult ModuleLoad(Module module, const QString& folder);

/// True once the operations of `module` are bound.
bool ModuleIsBound(Module module);

/// The bound operations. Every pointer is null before binding, so callers that can run without a module check
/// `ModuleIsBound` first.
TvGenApi& TvGen();
TvLngApi& TvLng();
TvScpiApi& TvScpi();
TvFioApi& TvFio();
TvSwpApi& TvSwp();
TvImgApi& TvImg();

/// Unbinds all modules. The libraries stay mapped for the life of the process.
void ModulesReset();

/// Marks `module` as bound after its table was filled in another way (by a program that links the library).
void ModuleMarkBound(Module module);

/// File and product version as "a.b.c.d", read from the version record inside the file without loading it.
struct FileVersion {
    QString File;
    QString Product;
};
std::optional<FileVersion> ReadFileVersion(const QString& path);

} // namespace tarvik
