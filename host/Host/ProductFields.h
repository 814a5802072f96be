// SPDX-License-Identifier: MIT
//
// The fields of a product file's objects, and the lines in which they stand.
#pragma once

#include <Host/ProductFile.h>

#include <nlohmann/json.hpp>

#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Host {

/// The steps to a value in JSON, such as "ownKeys", "0", "kind"; empty for the whole.
using Place = std::vector<std::string>;

/// A product file whose syntax is right, and in which no name stands twice in one object.
class ProductText {
public:
    /// Throws `ProductFileError`.
    explicit ProductText(std::filesystem::path const& file);

    nlohmann::json const& at(Place const& place) const;
    /// "product file FILE (line N)" of what stands at `place`, without a line for the whole; the name in UTF-8, whatever it is.
    std::string where(Place const& place) const;
    [[noreturn]] void refuse(Place const& place, std::string const& what) const;

private:
    std::filesystem::path m_file;
    nlohmann::json m_root;
    std::map<Place, std::size_t> m_lines; // of the names in objects and of the elements of arrays
};

/// One object of a product file. Every function throws `ProductFileError` where the field is missing or of another kind.
class Fields {
public:
    /// Checks that an object stands at `place`, with no other fields than `names`.
    Fields(ProductText const& text, Place place, std::vector<std::string> names);

    bool has(std::string const& name) const;
    bool boolean(std::string const& name) const;
    int number(std::string const& name) const;
    std::string text(std::string const& name) const;
    std::string path(std::string const& name) const;
    std::string folderName(std::string const& name) const;
    /// The texts of an array; `accepted` is what the error of any other value tells.
    std::vector<std::string> texts(std::string const& name, std::string const& accepted) const;
    /// The place of the field's text among `words`.
    std::size_t oneOf(std::string const& name, std::vector<std::string> const& words) const;
    /// The two ints of an array.
    std::pair<int, int> range(std::string const& name) const;

    std::string where() const { return m_text.where(m_place); }
    /// Refuses the object.
    [[noreturn]] void refuse(std::string const& what) const;
    /// Refuses the value of a field, "which takes" what is accepted.
    [[noreturn]] void refuse(std::string const& name, std::string const& accepted) const;

private:
    nlohmann::json const& field(std::string const& name) const;
    Place placeOf(std::string const& name) const;
    std::string allNames() const;

    ProductText const& m_text;
    Place m_place;
    std::vector<std::string> m_names;
};

} // namespace Host
