// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/XmlTree.h"

#include "base/Text.h"
#include "base/Windows1252.h"
#include "config/XmlText.h"

#include <pugixml.hpp>

#include <algorithm>

namespace tovik::config {

namespace {

constexpr const char* kIndent = "  ";

std::string plainName(const char* name) {
    const std::string_view whole(name);
    return std::string(whole.substr(whole.rfind(':') + 1));
}

// No deeper than a document may be.
XmlElement elementOf(const pugi::xml_node& node) { // NOLINT(misc-no-recursion)
    XmlElement element{.name = plainName(node.name())};
    for (const pugi::xml_attribute attribute : node.attributes()) {
        element.attributes.emplace_back(attribute.name(), attribute.value());
    }
    for (const pugi::xml_node child : node.children()) {
        if (child.type() == pugi::node_element) {
            element.children.push_back(elementOf(child));
        } else if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
            element.text += child.value();
        }
    }
    return element;
}

/// What a document can hold of a text.
std::string heldText(std::string_view text) {
    std::string held = base::displayText(text);
    if (!isXmlChars(held)) {
        std::ranges::replace_if(
            held, [](char character) { return static_cast<unsigned char>(character) < 0x20U; },
            ' ');
        held = base::replaceAll(held, "\xEF\xBF\xBE", " ");
        held = base::replaceAll(held, "\xEF\xBF\xBF", " ");
    }
    return held;
}

void put(const XmlElement& element, pugi::xml_node node) { // NOLINT(misc-no-recursion)
    for (const auto& [name, value] : element.attributes) {
        node.append_attribute(name.c_str()).set_value(heldText(value).c_str());
    }
    if (!element.text.empty()) {
        node.append_child(pugi::node_pcdata).set_value(heldText(element.text).c_str());
    }
    for (const XmlElement& child : element.children) {
        put(child, node.append_child(child.name.c_str()));
    }
}

struct FileText final : pugi::xml_writer {
    std::string text;

    void write(const void* data, std::size_t size) override {
        text.append(static_cast<const char*>(data), size);
    }
};

} // namespace

const XmlElement* XmlElement::child(std::string_view childName) const noexcept {
    const auto found = std::ranges::find(children, childName, &XmlElement::name);
    return found == children.end() ? nullptr : &*found;
}

std::optional<XmlElement> readXmlTree(std::string_view bytes) {
    pugi::xml_document document;
    // Who made UTF-8 of a file has left its declaration as it was.
    if (!parseXml(document, bytes, XmlBytes::File) && !parseXml(document, bytes, XmlBytes::Utf8)) {
        return std::nullopt;
    }
    return elementOf(document.document_element());
}

std::string xmlFileOf(const XmlElement& root) {
    pugi::xml_document document;
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version").set_value("1.0");
    declaration.append_attribute("encoding").set_value("UTF-8");
    put(root, document.append_child(root.name.c_str()));
    FileText file;
    document.save(file, kIndent, pugi::format_indent, pugi::encoding_utf8);
    return std::move(file.text);
}

} // namespace tovik::config
