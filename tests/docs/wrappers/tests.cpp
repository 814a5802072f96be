// SPDX-License-Identifier: MIT
//
// Tests of a host.
#include <Settings/Settings.h>
#include <TestKit/FixedProductInfo.h>
#include <TestKit/MemoryStorage.h>
#include <TestKit/ScopedBinding.h>

#include <gtest/gtest.h>

@1@
