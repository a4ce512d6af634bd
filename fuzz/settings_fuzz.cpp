// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a settings document. Whatever opens must be written so that it opens again
// with the same content, and what is written into it must be read back or leave it as it was.
#include "base/RuntimeError.h"
#include "config/clsXML.h"
#include "config/XmlText.h"

#include <pugixml.hpp>

#include <cstdint>
#include <cstdlib>

namespace {

using namespace tovik::config;

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// A text of the input that a document can hold: everything up to a zero.
std::string valueFrom(const std::string& bytes) {
    return bytes.substr(0, bytes.find('\0'));
}

void writeAndRead(clsXML& xml, const std::string& value) {
    const std::string before = xml.XML();
    xml.WriteNode("/*", value);
    xml.WriteAttribute("/*", "Value", value);
    clsXML again;
    demand(again.OpenXML(xml.XML(), XmlSource::Text));
    if (!isXmlChars(value)) {
        demand(xml.XML() == before);
        return;
    }
    demand(again.ReadNode("/*") == value);
    demand(again.ReadAttribute("/*", "Value") == value);
}

void tryAsPath(clsXML& xml, const std::string& path) {
    const std::int32_t count = xml.NodeCount(path);
    try {
        static_cast<void>(xml.ReadNode(path));
        demand(count > 0);
    } catch (const tovik::base::RuntimeError& error) {
        demand(error.number() == 94 && count <= 0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    pugi::xml_document document;
    if (parseXml(document, bytes, XmlBytes::File)) {
        const std::string written = xmlOf(document);
        pugi::xml_document again;
        demand(parseXml(again, written, XmlBytes::Utf8));
        demand(xmlOf(again) == written);
        demand(textOf(again) == textOf(document));
    }
    clsXML xml;
    if (xml.OpenXML(bytes, XmlSource::Text)) {
        writeAndRead(xml, valueFrom(bytes));
    }
    demand(xml.OpenXML("<Settings><MI>0</MI><CEQ Value=\"0/0\"/></Settings>", XmlSource::Text));
    tryAsPath(xml, valueFrom(bytes));
    return 0;
}
