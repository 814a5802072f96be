// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/SettingsContext.h>

namespace TestKit {

/// Binds the library to `context`, and restores the earlier binding when it is destroyed. Like `Settings::init` it must
/// not run at the same time as any other call of the library.
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
