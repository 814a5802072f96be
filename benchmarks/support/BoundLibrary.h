// SPDX-License-Identifier: MIT
#pragma once

#include "SimpleStorage.h"

#include <Settings/Settings.h>
#include <TestKit/FixedProductInfo.h>
#include <TestKit/ScopedBinding.h>
#include <TestKit/TemporaryHome.h>

#include <memory>

namespace Bench {

/// The library bound to values in memory, in a home folder of its own.
struct BoundLibrary {
    TestKit::TemporaryHome const home;
    std::shared_ptr<TestKit::FixedProductInfo> const product = std::make_shared<TestKit::FixedProductInfo>();
    std::shared_ptr<SimpleStorage> const commonValues = std::make_shared<SimpleStorage>();
    std::shared_ptr<SimpleStorage> const productValues = std::make_shared<SimpleStorage>();
    TestKit::ScopedBinding const binding{{product, commonValues, productValues, Lumora::ioPath("/resources")}};
};

/// `useCommonStorage` of the library's typed access.
constexpr bool inProductStorage = false;

inline QString qString(std::string const& text) { return QString::fromStdString(text); }

} // namespace Bench
