// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/SettingsContext.h>

namespace TestKit {

/// Binds the library to `context` and, when it goes, restores the binding that it found. Like `Settings::init` it must
/// not run beside any other call of the library.
class ScopedBinding {
public:
    /// Binds the library to `context`, which is not kept alive.
    explicit ScopedBinding(SettingsContext const& context);
    ~ScopedBinding();
    ScopedBinding(ScopedBinding const&) = delete;
    ScopedBinding& operator=(ScopedBinding const&) = delete;

private:
    SettingsContext m_earlier;
};

} // namespace TestKit
