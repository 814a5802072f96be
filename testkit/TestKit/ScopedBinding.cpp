// SPDX-License-Identifier: MIT
#include <Settings/Settings.h>
#include <TestKit/ScopedBinding.h>

TestKit::ScopedBinding::ScopedBinding(SettingsContext const& context) : m_earlier(s_instance) { Settings::init(context); }

TestKit::ScopedBinding::~ScopedBinding() { Settings::init(m_earlier); }
