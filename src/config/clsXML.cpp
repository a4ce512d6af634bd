// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/clsXML.h"

#include "base/AtomicFile.h"
#include "base/RegularFile.h"
#include "base/RuntimeError.h"
#include "config/StrictXml.h"
#include "config/WriteFailure.h"
#include "config/XmlText.h"

#include <pugixml.hpp>

#include <array>
#include <utility>

namespace tovik::config {

using base::ErrorNumber;
using base::RuntimeError;

struct clsXML::Document {
    pugi::xml_document xml;
    bool readable = false; ///< it holds what its source told
    bool changed = false;  ///< since it was read or saved

    /// Raises 91 where nothing is selected, 5 for a path that is none.
    [[nodiscard]] pugi::xpath_node select(const std::string& path) const {
        const auto nodes = selectAll(path);
        if (nodes.empty()) {
            throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
        }
        return nodes.first();
    }

    [[nodiscard]] pugi::xpath_node_set selectAll(const std::string& path) const {
        const pugi::xml_node root = xml.document_element();
        if (!root) {
            throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
        }
        try {
            return root.select_nodes(path.c_str());
        } catch (const pugi::xpath_exception&) {
            throw RuntimeError(ErrorNumber::InvalidProcedureCall);
        }
    }

    [[nodiscard]] pugi::xml_node selectElement(const std::string& path) const {
        const pugi::xml_node node = select(path).node();
        if (node.type() != pugi::node_element) {
            throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
        }
        return node;
    }
};

namespace {

constexpr std::array kDeclarationAttributes{"version", "encoding", "standalone"};

std::string textOfSelected(const pugi::xpath_node& selected) {
    return selected.attribute().empty() ? textOf(selected.node()) : selected.attribute().value();
}

bool setTextOfSelected(const pugi::xpath_node& selected, const std::string& value) {
    return selected.attribute().empty()
               ? setText(selected.node(), value)
               : isXmlChars(value) && selected.attribute().set_value(value.c_str());
}

/// The members that swallow failures do so here.
template <typename Operation>
void swallowing(const Operation& operation) {
    try {
        operation();
    } catch (const RuntimeError&) { // NOLINT(bugprone-empty-catch): that is what they are to do
    }
}

/// Any failure of a read comes out as the use of a null value.
template <typename Operation>
std::string nullOnFailure(const Operation& operation) {
    try {
        return operation();
    } catch (const RuntimeError&) {
        throw RuntimeError(ErrorNumber::InvalidUseOfNull);
    }
}

void require(bool allowed) {
    if (!allowed) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
}

} // namespace

clsXML::clsXML() = default;
clsXML::~clsXML() = default;

clsXML::Document& clsXML::document() const {
    if (!document_) {
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    }
    return *document_;
}

std::string clsXML::XMLDocumentInfo(int kind) const {
    pugi::xml_node first = document().xml.first_child();
    while (first.type() == pugi::node_pcdata) { // blanks before it
        first = first.next_sibling();
    }
    if (kind < 0 || static_cast<std::size_t>(kind) >= kDeclarationAttributes.size()) {
        return {};
    }
    const pugi::xml_attribute attribute =
        first.attribute(kDeclarationAttributes.at(static_cast<std::size_t>(kind)));
    if (!attribute) {
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    }
    return attribute.value();
}

bool clsXML::OpenXML(const std::string& source, XmlSource kind) {
    return OpenXML(source, static_cast<int>(kind));
}

bool clsXML::OpenXML(const std::string& source, int kind) {
    if (kind == static_cast<int>(XmlSource::FilePath)) {
        std::string bytes; // empty, which is no document, where it cannot be read
        static_cast<void>(
            base::readWholeFile(source, bytes, static_cast<std::int64_t>(kMostXmlBytes)));
        return OpenBytes(bytes);
    }
    document_ = std::make_unique<Document>();
    if (kind == static_cast<int>(XmlSource::Text)) {
        document_->readable = parseXml(document_->xml, source, XmlBytes::Utf8);
    }
    return document_->readable;
}

bool clsXML::OpenBytes(std::string_view bytes) {
    document_ = std::make_unique<Document>();
    document_->readable = parseXml(document_->xml, bytes, XmlBytes::File);
    return document_->readable;
}

std::string clsXML::ReadNode(const std::string& path) const {
    return nullOnFailure([&] { return textOfSelected(document().select(path)); });
}

std::string clsXML::ReadNodeXML(const std::string& path) const {
    const pugi::xpath_node selected = document().select(path);
    if (!selected.attribute()) {
        return xmlOf(selected.node());
    }
    // An attribute is written as it stands in an element: <x NAME="VALUE"/>.
    pugi::xml_document carrier;
    carrier.append_child("x").append_copy(selected.attribute());
    const std::string element = xmlOf(carrier.first_child());
    const std::size_t begin = element.find(' ') + 1;
    return element.substr(begin, element.rfind('"') + 1 - begin);
}

std::string clsXML::XML() const {
    return xmlOf(document().xml);
}

void clsXML::WriteNode(const std::string& path, const std::string& value) {
    swallowing([&] {
        const pugi::xpath_node selected = document().select(path);
        const bool differs = textOfSelected(selected) != value;
        document_->changed |= setTextOfSelected(selected, value) && differs;
    });
}

std::string clsXML::ReadAttribute(const std::string& path, const std::string& attribute) const {
    return nullOnFailure([&]() -> std::string {
        const pugi::xml_attribute found =
            document().selectElement(path).attribute(attribute.c_str());
        if (!found) {
            throw RuntimeError(ErrorNumber::InvalidUseOfNull);
        }
        return found.value();
    });
}

void clsXML::WriteAttribute(const std::string& path, const std::string& attribute,
                            const std::string& value) {
    swallowing([&] {
        pugi::xml_node element = document().selectElement(path);
        require(isXmlName(attribute) && isXmlChars(value));
        pugi::xml_attribute found = element.attribute(attribute.c_str());
        document_->changed |= !found || value != found.value();
        if (!found) {
            found = element.append_attribute(attribute.c_str());
        }
        found.set_value(value.c_str());
    });
}

std::int32_t clsXML::NodeCount(const std::string& path) const {
    try {
        return static_cast<std::int32_t>(document().selectAll(path).size());
    } catch (const RuntimeError&) {
        return -1;
    }
}

void clsXML::Save(const std::string& path, base::Flush most) {
    Document& own = document();
    if (!own.readable) {
        return;
    }
    const base::Flush flush = own.changed ? most : base::Flush::No;
    requireWritable(path);
    if (const auto failure = base::replaceFile(path, xmlOf(own.xml), flush)) {
        raiseWriteFailure(failure, path);
    }
    own.changed = false;
}

void clsXML::DeleteNode(const std::string& path) {
    swallowing([&] {
        const pugi::xml_node node = document().select(path).node();
        document_->changed |= node.parent().remove_child(node);
    });
}

void clsXML::MakeNode(const std::string& parentPath, const std::string& name,
                      const std::optional<std::string>& value,
                      const std::optional<XmlAttribute>& first,
                      const std::optional<XmlAttribute>& second) {
    pugi::xml_node parent = document().selectElement(parentPath);
    require(isXmlName(name) && (!value || isXmlChars(*value)));
    pugi::xml_node made = parent.append_child(name.c_str());
    document_->changed = true;
    if (value) {
        static_cast<void>(setText(made, *value));
    }
    const std::string path = parentPath + "/" + name;
    for (const auto& attribute : {first, second}) {
        if (attribute) {
            WriteAttribute(path, attribute->name, attribute->value);
        }
    }
}

void clsXML::takeMissing(const clsXML& from, std::string_view except) {
    pugi::xml_node own = document().xml.document_element();
    const pugi::xml_node others = from.document().xml.document_element();
    if (!own || !others) {
        return;
    }
    for (const pugi::xml_node& child : others.children()) {
        const std::string_view name = child.name();
        if (child.type() == pugi::node_element && !name.starts_with(except) &&
            !own.child(child.name())) {
            own.append_copy(child);
            document_->changed = true;
        }
    }
}

bool clsXML::readable() const noexcept {
    return document_ && document_->readable;
}

bool clsXML::changed() const noexcept {
    return document_ && document_->changed;
}

void clsXML::DeleteAttribute(const std::string& path, const std::string& attribute) {
    pugi::xml_node element = document().selectElement(path);
    document_->changed |= element.remove_attribute(attribute.c_str());
}

} // namespace tovik::config
