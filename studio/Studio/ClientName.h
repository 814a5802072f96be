// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Studio {

/// A name that no other client has, in the form of a UUID.
std::string newClientName();

} // namespace Studio
