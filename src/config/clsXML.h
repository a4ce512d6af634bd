// SPDX-License-Identifier: GPL-3.0-or-later
// One XML document whose parts are addressed by XPath. Interface thread.
#pragma once

#include "base/AtomicFile.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tovik::config {

/// What `clsXML::OpenXML` takes its source for.
enum class XmlSource { FilePath = 0, Text = 1 };

/// An attribute for a new element.
struct XmlAttribute {
    std::string name{};
    std::string value{};
};

/// A document and the operations on it. All paths are XPath 1.0 expressions, evaluated on the
/// document element. Texts are UTF-8. What was read is written again as it was, in UTF-8, with
/// comments, order and blanks between elements; a text that would make the document unreadable
/// (`isXmlChars`) is never put into it. Errors that a member does not swallow are raised as
/// `RuntimeError`: 91 where there is no document, node or attribute, 5 for a bad path, name or
/// text.
class clsXML {
public:
    clsXML();
    ~clsXML();
    clsXML(const clsXML&) = delete;
    clsXML& operator=(const clsXML&) = delete;

    /// An attribute of the XML declaration: kind 0 version, 1 encoding, 2 standalone; empty for
    /// any other kind.
    [[nodiscard]] std::string XMLDocumentInfo(int kind) const;

    /// Drops the document and reads another one. False leaves it empty: a file that is missing,
    /// unreadable or not well formed, or a kind that is none. "Not well formed" is what the strict
    /// parser says (`StrictXml.h`); a file may be in any encoding that it declares, text is UTF-8.
    bool OpenXML(const std::string& source, XmlSource kind);
    bool OpenXML(const std::string& source, int kind);

    /// The same for what was read of a file.
    bool OpenBytes(std::string_view bytes);

    /// The text of a node and all below it. Any failure raises 94.
    [[nodiscard]] std::string ReadNode(const std::string& path) const;

    /// A node as XML text.
    [[nodiscard]] std::string ReadNodeXML(const std::string& path) const;

    /// The whole document as XML text.
    [[nodiscard]] std::string XML() const;

    /// Sets the text of a node. Any failure is swallowed.
    void WriteNode(const std::string& path, const std::string& value);

    /// Any failure, also an absent attribute, raises 94.
    [[nodiscard]] std::string ReadAttribute(const std::string& path,
                                            const std::string& attribute) const;

    /// Any failure is swallowed.
    void WriteAttribute(const std::string& path, const std::string& attribute,
                        const std::string& value);

    /// How many nodes the path selects; -1 on any failure.
    [[nodiscard]] std::int32_t NodeCount(const std::string& path) const;

    /// Replaces a file by the document, whole or not at all; the bytes are flushed to the disk if
    /// the document was changed since it was read or saved, unless `most` is No. Raises what fails:
    /// 70 for a file or folder that may not be written, 61 for a full disk, and so on, with the
    /// path in the description. A document that could not be read has nothing to save: no file is
    /// touched.
    void Save(const std::string& path, base::Flush most = base::Flush::Yes);

    /// Any failure is swallowed.
    void DeleteNode(const std::string& path);

    /// Appends an element to a parent. Each attribute is set on the node that the parent's path,
    /// "/" and the new name select: where siblings bear that name, on the first of them.
    void MakeNode(const std::string& parentPath, const std::string& name,
                  const std::optional<std::string>& value = std::nullopt,
                  const std::optional<XmlAttribute>& first = std::nullopt,
                  const std::optional<XmlAttribute>& second = std::nullopt);

    /// Appends to the document element a copy of each child of another document's that it has none
    /// of by that name, but for those whose names begin with `except`. Without a document element
    /// on either side nothing happens.
    void takeMissing(const clsXML& from, std::string_view except);

    /// Whether the document holds what its source told.
    [[nodiscard]] bool readable() const noexcept;

    /// Whether it was changed since it was read or saved.
    [[nodiscard]] bool changed() const noexcept;

    /// An absent attribute is no failure.
    void DeleteAttribute(const std::string& path, const std::string& attribute);

private:
    struct Document;

    [[nodiscard]] Document& document() const;

    std::unique_ptr<Document> document_; ///< none until the first `OpenXML`
};

} // namespace tovik::config
