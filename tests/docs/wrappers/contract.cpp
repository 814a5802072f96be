// SPDX-License-Identifier: MIT
//
// The contract suite, over a store.
#include <TestKit/MemoryStorage.h>
#include <TestKit/StorageContract.h>

@1@
