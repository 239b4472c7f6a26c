// app/platform/port.h: how a lower room calls a higher one: through an abstract class that the lower room declares.
#pragma once

#include "app/platform/processState.h"

namespace tarvik {

/// Where a lower room finds the implementation of `Interface`; never empty. The composition, or the owner of the
/// implementation, sets it; before that, and in programs without one, the absent implementation answers.
template <typename Interface>
class Port : public RegisteredState {
public:
    Interface* operator->() const
    {
        return current_;
    }
    Interface& operator*() const
    {
        return *current_;
    }

    /// `implementation` lives until Reset, another Set, or the end of the program.
    void Set(Interface& implementation)
    {
        current_ = &implementation;
    }

    /// Sets a static instance of a class without data.
    template <typename Stateless>
    void Implement()
    {
        static_assert(sizeof(Stateless) == sizeof(void*), "an implementation with data has an owner, which sets it");
        static Stateless implementation;
        Set(implementation);
    }

    /// The absent implementation answers again.
    void Reset() final
    {
        current_ = absent_;
    }

protected:
    explicit Port(Interface& absent)
        : absent_(&absent)
        , current_(&absent)
    {
    }
    ~Port() = default;

private:
    Interface* absent_;
    Interface* current_;
};

/// Sets an implementation for its own lifetime, then restores the former one. Scopes of one port nest.
template <typename Interface>
class PortScope {
public:
    PortScope(Port<Interface>& port, Interface& implementation)
        : port_(port)
        , before_(*port)
    {
        port_.Set(implementation);
    }
    ~PortScope()
    {
        port_.Set(before_);
    }
    PortScope(const PortScope&) = delete;
    PortScope& operator=(const PortScope&) = delete;

private:
    Port<Interface>& port_;
    Interface& before_;
};

/// The one instance of a port, a static of the function that returns it:
///
///     Port<Frame>& TheFrame()
///     {
///         static PortOr<Frame, NoFrame> port;
///         return port;
///     }
template <typename Interface, typename Absent>
class PortOr final : public Port<Interface> {
public:
    PortOr()
        : Port<Interface>(absentHere_)
    {
    }

private:
    Absent absentHere_;
};

} // namespace tarvik
