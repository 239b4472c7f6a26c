#include "tools/instrument/session.h"

#include "app/text/ansi.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <poll.h>
#include <sys/socket.h>

namespace tarvik {

namespace {

constexpr size_t kReceiveBytes = size_t{ 256 } << 10;

/// How long unused rate accumulates, so that a slow link flows evenly.
constexpr double kBurstSeconds = 0.05;

/// Escapes a client's line so that it can't control the terminal.
QByteArray Printable(std::string_view line)
{
    QString text = FromAnsi(QByteArrayView(line.data(), static_cast<qsizetype>(line.size())));
    std::replace_if(
        text.begin(), text.end(), [](QChar character) { return !character.isPrint(); }, QChar(u'?'));
    return text.toLocal8Bit();
}

/// Whole milliseconds, at least 0, that are no shorter than `time`.
int MillisecondsUp(LinkTime::duration time)
{
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(time).count();
    return static_cast<int>(std::max<std::int64_t>(milliseconds, 0));
}

bool WouldWait(int systemError)
{
    return systemError == EAGAIN || systemError == EWOULDBLOCK || systemError == EINTR;
}

} // namespace

RateLimit::RateLimit(std::int64_t bytesPerSecond)
    : bytesPerSecond_(static_cast<double>(bytesPerSecond))
    , maxAllowance_(std::max(1.0, bytesPerSecond_ * kBurstSeconds))
{
}

void RateLimit::Refill(LinkTime now)
{
    if (refilled_ != LinkTime{})
        allowance_ += bytesPerSecond_ * std::chrono::duration<double>(now - refilled_).count();
    allowance_ = std::min(allowance_, maxAllowance_);
    refilled_ = now;
}

size_t RateLimit::Allowed(LinkTime now, size_t wanted)
{
    if (bytesPerSecond_ <= 0)
        return wanted;
    Refill(now);
    return std::min(wanted, static_cast<size_t>(std::max(0.0, allowance_)));
}

void RateLimit::Passed(size_t count)
{
    allowance_ -= static_cast<double>(count);
}

int RateLimit::WaitMs(LinkTime now)
{
    if (bytesPerSecond_ <= 0)
        return 0;
    Refill(now);
    return allowance_ >= 1 ? 0 : static_cast<int>(std::ceil((1 - allowance_) * 1000 / bytesPerSecond_));
}

std::vector<FaultKind> FaultPlan::CountCommand()
{
    ++CommandsSeen;
    std::vector<FaultKind> due;
    std::erase_if(Faults, [&](const Fault& fault) {
        if (fault.AtCommand != CommandsSeen)
            return false;
        due.push_back(fault.Kind);
        return true;
    });
    return due;
}

Session::Session(Descriptor socket, Instrument& instrument, FaultPlan& plan, const LinkOptions& options)
    : socket_(std::move(socket))
    , instrument_(instrument)
    , plan_(plan)
    , options_(options)
    , sending_(options.BytesPerSecond)
    , receiving_(options.BytesPerSecond)
{
    instrument_.Reset();
}

Session::~Session()
{
    instrument_.Reset();
}

bool Session::MayReceive() const
{
    return !inputEnded_ && !isDropped_ && (isStalled_ || input_.empty());
}

bool Session::MayRun(LinkTime now) const
{
    return !isDropped_ && !isStalled_ && !input_.empty() && now >= due_ && !answers_.IsFull();
}

short Session::WantedEvents(LinkTime now)
{
    short events = POLLRDHUP;
    if (peerIsDone_)
        events = 0; // it would be reported again and again
    if (MayReceive() && receiving_.WaitMs(now) == 0)
        events |= POLLIN;
    if (!answers_.IsEmpty() && !isStalled_ && sending_.WaitMs(now) == 0)
        events |= POLLOUT;
    return events;
}

int Session::TimeoutMs(LinkTime now)
{
    int timeoutMs = -1;
    const auto atMost = [&timeoutMs](int milliseconds) {
        timeoutMs = timeoutMs < 0 ? milliseconds : std::min(timeoutMs, milliseconds);
    };
    if (MayReceive() && receiving_.WaitMs(now) > 0)
        atMost(receiving_.WaitMs(now));
    if (!answers_.IsEmpty() && !isStalled_ && sending_.WaitMs(now) > 0)
        atMost(sending_.WaitMs(now));
    if (!input_.empty() && !isStalled_ && now < due_)
        atMost(MillisecondsUp(due_ - now));
    else if (MayRun(now))
        atMost(0);
    if (peerIsDone_ && !answers_.IsEmpty())
        atMost(MillisecondsUp(readUntil_ + kReadingPatience - now));
    return timeoutMs;
}

bool Session::Service(short events, LinkTime now)
{
    if ((events & (POLLERR | POLLNVAL)) != 0)
        return false;
    peerIsDone_ = peerIsDone_ || (events & (POLLRDHUP | POLLHUP)) != 0;
    if ((events & (POLLIN | POLLHUP)) != 0 && MayReceive() && !Receive(now))
        return false;
    Run(now);
    if ((isStalled_ && peerIsDone_) || (!isStalled_ && !Send(now)))
        return false;
    if ((isDropped_ && answers_.IsEmpty()) || HasLostPatience(now))
        return false;
    return !(inputEnded_ && input_.empty() && answers_.IsEmpty());
}

bool Session::Receive(LinkTime now)
{
    buffer_.resize(kReceiveBytes);
    const size_t allowed = receiving_.Allowed(now, kReceiveBytes);
    if (allowed == 0)
        return true; // a read of 0 bytes would look like the end of the connection
    const ssize_t count = ::recv(socket_.Number(), buffer_.data(), allowed, MSG_DONTWAIT);
    if (count < 0) {
        input_ = {};
        return WouldWait(errno);
    }
    receiving_.Passed(static_cast<size_t>(count));
    inputEnded_ = count == 0;
    input_ = std::string_view(buffer_).substr(0, isStalled_ ? 0 : static_cast<size_t>(count));
    due_ = reader_.IsInBlock() ? now : now + options_.Delay;
    return true;
}

void Session::Run(LinkTime now)
{
    while (MayRun(now))
        Handle(reader_.Next(input_));
}

void Session::Handle(ReaderEvent event)
{
    if (event == ReaderEvent::NeedsBytes)
        return;
    if (event == ReaderEvent::BlockBytes) {
        instrument_.TakeBlock(reader_.BlockPiece());
        return;
    }
    if (!isCounted_)
        CountCommand();
    isCounted_ = event == ReaderEvent::BlockBegins;
    if (isDropped_ || isStalled_)
        return;
    if (event == ReaderEvent::BlockBegins)
        instrument_.BeginBlock(reader_.Current(), reader_.BlockLength());
    else if (event == ReaderEvent::Command)
        instrument_.Execute(reader_.Current(), answers_);
    else
        instrument_.ReportBad();
    if (options_.Verbose && event != ReaderEvent::BlockBegins)
        LogCommand(event == ReaderEvent::Command ? reader_.Current() : Command());
}

void Session::CountCommand()
{
    for (const FaultKind kind : plan_.CountCommand()) {
        isDropped_ = isDropped_ || kind == FaultKind::Drop;
        isStalled_ = isStalled_ || kind == FaultKind::Stall;
        if (kind == FaultKind::Garbage)
            answers_.SpoilNext();
        else if (kind == FaultKind::Cut)
            answers_.CutNextBlock();
        else if (kind == FaultKind::Refuse)
            instrument_.RefuseNext();
    }
}

void Session::LogCommand(const Command& command)
{
    std::string line = command.Header.empty() ? "(no command)" : command.Header;
    line += command.IsQuery ? "?" : "";
    for (const CommandParameter& parameter : command.Parameters)
        line += ' ' + (parameter.Kind == CommandParameter::Form::Block ? "(block)" : parameter.Value);
    const std::string error = ErrorAnswer(instrument_.Errors().Newest());
    std::fprintf(stderr, "%s: %s\n", Printable(line).constData(), error.c_str());
}

/// A client that reads nothing must not keep the others waiting for its end.
bool Session::HasLostPatience(LinkTime now)
{
    if (!peerIsDone_ || answers_.IsEmpty())
        readUntil_ = now;
    return now - readUntil_ >= kReadingPatience;
}

bool Session::Send(LinkTime now)
{
    while (!answers_.IsEmpty()) {
        const size_t allowed = sending_.Allowed(now, kReceiveBytes);
        const std::string_view bytes = allowed == 0 ? std::string_view() : answers_.Peek(allowed);
        if (bytes.empty())
            return !answers_.IsBroken();
        const ssize_t count = ::send(socket_.Number(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count < 0)
            return WouldWait(errno);
        sending_.Passed(static_cast<size_t>(count));
        readUntil_ = now;
        answers_.Sent(static_cast<size_t>(count));
    }
    return true;
}

} // namespace tarvik
