// SPDX-License-Identifier: GPL-3.0-or-later
// The settings that came with the program: what takes the place of a key or of a file that cannot
// be read. Interface thread.
#pragma once

#include "config/clsXML.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tovik::config {

/// Read when it is first asked for, and never written.
class ShippedSettings {
public:
    /// Where the file lies; empty, and before: nothing came with the program. `musicFolder` tells
    /// what folders without a text stand for, when that is first needed; none: they stay so.
    void lieAt(std::string path, std::function<std::string()> musicFolder = {});

    /// Whether there is a document.
    [[nodiscard]] bool there();

    /// Gives an open document of settings the keys that it lacks. Whether comfort is wanted is none
    /// of them: a document that does not say so wants none.
    void complete(clsXML& xml);

    /// Opens in `xml` what takes the place of a file that holds these bytes and is no document.
    /// Where they still show a key, comfort is wanted as far as they say so; else, as after a first
    /// start.
    void takePlaceOf(std::string_view bytes, clsXML& xml);

    /// The text of a key, or of an attribute of its element; nothing where there is none.
    [[nodiscard]] std::optional<std::string> textOf(std::string_view key);
    [[nodiscard]] std::optional<std::string> attributeOf(std::string_view key,
                                                         const std::string& attribute);

private:
    void fill(clsXML& xml, std::string_view key) const;

    std::string path_;
    std::function<std::string()> musicFolder_;
    std::optional<clsXML> xml_;
};

} // namespace tovik::config
