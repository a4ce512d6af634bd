// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/XmlText.h"

#include "base/Text.h"
#include "config/StrictXml.h"
#include "config/XmlEncoding.h"

#include <pugixml.hpp>

#include <algorithm>
#include <optional>

namespace tovik::config {

namespace {

/// Nothing is normalised: what the program did not touch is written as it was read.
constexpr unsigned kParse = pugi::parse_fragment | pugi::parse_declaration | pugi::parse_doctype |
                            pugi::parse_pi | pugi::parse_comments | pugi::parse_cdata |
                            pugi::parse_escapes | pugi::parse_ws_pcdata;
constexpr unsigned kWrite = pugi::format_raw | pugi::format_no_declaration;

/// The document will be written in UTF-8, so it must not say anything else of itself.
void declareUtf8(pugi::xml_document& document) {
    for (const pugi::xml_node child : document.children()) {
        pugi::xml_attribute encoding = child.attribute("encoding");
        if (child.type() == pugi::node_declaration &&
            !base::equalsIgnoringCase(encoding.value(), "UTF-8")) {
            encoding.set_value("UTF-8"); // does nothing where there is none
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
    document.reset();
    if (bytes.size() > kMostXmlBytes) {
        return false;
    }
    const std::optional<std::string> text =
        kind == XmlBytes::File ? utf8OfXmlFile(bytes) : std::string(bytes);
    // The library's own parser lets much pass that is no XML, and would write it back changed.
    if (!text || !isStrictXml(*text)) {
        return false;
    }
    if (!document.load_buffer(text->data(), text->size(), kParse, pugi::encoding_utf8)) {
        document.reset();
        return false;
    }
    declareUtf8(document);
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
    if (!isXmlChars(text)) {
        return false;
    }
    if (node.type() != pugi::node_element) {
        return node.set_value(text.c_str());
    }
    node.remove_children();
    return text.empty() || node.append_child(pugi::node_pcdata).set_value(text.c_str());
}

bool isXmlName(std::string_view name) {
    return !name.empty() && isNameStart(name.front()) &&
           std::all_of(name.begin(), name.end(), isNamePart) &&
           isStrictXml("<" + std::string(name) + "/>");
}

bool isXmlChars(std::string_view text) noexcept {
    constexpr std::string_view kNoncharacters = "\xEF\xBF\xBE\xEF\xBF\xBF"; // U+FFFE, U+FFFF
    const auto isControl = [](char character) {
        return static_cast<unsigned char>(character) < 0x20U && character != '\t' &&
               character != '\n' && character != '\r';
    };
    return base::isUtf8(text) && std::none_of(text.begin(), text.end(), isControl) &&
           text.find(kNoncharacters.substr(0, 3)) == std::string_view::npos &&
           text.find(kNoncharacters.substr(3)) == std::string_view::npos;
}

} // namespace tovik::config
