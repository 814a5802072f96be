// SPDX-License-Identifier: MIT
//
// The keys that the library reads, those that are made from names included. The library must be bound.
#pragma once

#include <Catalogue/Catalogue.h>

#include <Storage/Kind.h>

#include <optional>
#include <string>

struct KnownKey {
    Catalogue::Store store;
    Catalogue::DataClass dataClass;
    Storage::Kind kind; ///< That the store keeps its values as.
};

/// What is known of `key`; nothing where the library never asks for it.
std::optional<KnownKey> knownKey(std::string const& key);

/// The word for the class of `key`; empty where it is unknown.
std::string classOf(std::string const& key);
