// SPDX-License-Identifier: MIT
//
// A host whose stores are in memory, and what it does.
#include <Settings/Settings.h>
#include <TestKit/FixedProductInfo.h>
#include <TestKit/MemoryStorage.h>

#include <QDir>
#include <QFile>

#include <cstdio>

int main()
{
    auto const product = std::make_shared<TestKit::FixedProductInfo>();
    product->vendor = "Lumora";
    product->product = "Lumora Video Editor";
    product->sharedData = "VideoEditor";
    product->extensions = "lumora";
    auto const common = std::make_shared<TestKit::MemoryStorage>();
    auto const own = std::make_shared<TestKit::MemoryStorage>();
    Settings::init({product, common, own, Lumora::ioPath("/opt/editor")});
@1@
}
