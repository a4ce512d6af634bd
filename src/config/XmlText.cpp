// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/XmlText.h"

#include <pugixml.hpp>

#include <algorithm>

namespace tovik::config {

namespace {

/// Nothing is normalised: what the program did not touch is written as it was read.
constexpr unsigned kParse = pugi::parse_fragment | pugi::parse_declaration | pugi::parse_doctype |
                            pugi::parse_pi | pugi::parse_comments | pugi::parse_cdata |
                            pugi::parse_escapes | pugi::parse_ws_pcdata;
constexpr unsigned kWrite = pugi::format_raw | pugi::format_no_declaration;

bool isWhite(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// One element at the top and no text beside it: the parser itself lets more pass.
bool hasOneRoot(const pugi::xml_document& document) {
    int elements = 0;
    for (const pugi::xml_node child : document.children()) {
        const auto type = child.type();
        elements += type == pugi::node_element ? 1 : 0;
        if (type == pugi::node_cdata || (type == pugi::node_pcdata && !isWhite(child.value()))) {
            return false;
        }
    }
    return elements == 1;
}

/// The document will be written in UTF-8, so it must not say anything else of itself.
void declareUtf8(pugi::xml_document& document) {
    for (const pugi::xml_node child : document.children()) {
        if (child.type() == pugi::node_declaration) {
            child.attribute("encoding").set_value("UTF-8");
        }
    }
}

struct StringWriter final : pugi::xml_writer {
    std::string text;

    void write(const void* data, std::size_t size) override {
        text.append(static_cast<const char*>(data), size);
    }
};

struct TextCollector final : pugi::xml_tree_walker {
    std::string text;

    bool for_each(pugi::xml_node& node) override {
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) {
            text += node.value();
        }
        return true;
    }
};

bool isNameStart(char character) noexcept {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           character == '_' || character == ':' || static_cast<unsigned char>(character) >= 0x80U;
}

bool isNamePart(char character) noexcept {
    return isNameStart(character) || (character >= '0' && character <= '9') || character == '-' ||
           character == '.';
}

} // namespace

bool parseXml(pugi::xml_document& document, std::string_view bytes, XmlBytes kind) {
    const auto asked = kind == XmlBytes::File ? pugi::encoding_auto : pugi::encoding_utf8;
    const auto result = document.load_buffer(bytes.data(), bytes.size(), kParse, asked);
    const bool singleBytes =
        result.encoding == pugi::encoding_utf8 || result.encoding == pugi::encoding_latin1;
    // The parser takes a zero for the end of the text.
    const bool cutShort = singleBytes && bytes.find('\0') != std::string_view::npos;
    if (!result || cutShort || !hasOneRoot(document)) {
        document.reset();
        return false;
    }
    if (result.encoding != pugi::encoding_utf8) {
        declareUtf8(document);
    }
    return true;
}

std::string xmlOf(const pugi::xml_node& node) {
    StringWriter writer;
    node.print(writer, "", kWrite, pugi::encoding_utf8);
    return std::move(writer.text);
}

std::string textOf(const pugi::xml_node& node) {
    if (node.type() != pugi::node_element && node.type() != pugi::node_document) {
        return node.value();
    }
    TextCollector collector;
    pugi::xml_node(node).traverse(collector);
    return std::move(collector.text);
}

bool setText(pugi::xml_node node, const std::string& text) {
    if (node.type() != pugi::node_element) {
        return node.set_value(text.c_str());
    }
    node.remove_children();
    return text.empty() || node.append_child(pugi::node_pcdata).set_value(text.c_str());
}

bool isXmlName(std::string_view name) noexcept {
    return !name.empty() && isNameStart(name.front()) &&
           std::all_of(name.begin(), name.end(), isNamePart);
}

} // namespace tovik::config
