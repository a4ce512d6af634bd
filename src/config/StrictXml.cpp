// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/StrictXml.h"

#include "base/Text.h"

#include <expat.h>

#include <memory>
#include <new>
#include <type_traits>

namespace tovik::config {

namespace {

struct FreeParser {
    void operator()(XML_Parser parser) const noexcept { XML_ParserFree(parser); }
};

using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, FreeParser>;

struct Walk {
    XML_Parser parser;
    int level = 0;

    /// Ends the parse with an error.
    void refuse() const { static_cast<void>(XML_StopParser(parser, XML_FALSE)); }
};

Walk& walkOf(void* data) {
    return *static_cast<Walk*>(data);
}

void XMLCALL beginElement(void* data, const XML_Char* /*name*/, const XML_Char** /*attributes*/) {
    Walk& walk = walkOf(data);
    if (++walk.level > kMostXmlLevels) {
        walk.refuse();
    }
}

void XMLCALL endElement(void* data, const XML_Char* /*name*/) {
    --walkOf(data).level;
}

void XMLCALL beginDoctype(void* data, const XML_Char* /*name*/, const XML_Char* system,
                          const XML_Char* /*publicId*/, int /*hasInternalSubset*/) {
    if (system != nullptr) {
        walkOf(data).refuse();
    }
}

void XMLCALL declareEntity(void* data, const XML_Char* /*name*/, int /*isParameter*/,
                           const XML_Char* /*value*/, int /*valueLength*/, const XML_Char* /*base*/,
                           const XML_Char* /*system*/, const XML_Char* /*publicId*/,
                           const XML_Char* /*notation*/) {
    walkOf(data).refuse();
}

} // namespace

bool isStrictXml(std::string_view utf8) {
    // The parser would take a byte order mark or zeros for the signs of UTF-16.
    if (utf8.size() > kMostXmlBytes || !base::isUtf8(utf8) ||
        utf8.find('\0') != std::string_view::npos) {
        return false;
    }
    const Parser parser(XML_ParserCreate("UTF-8"));
    if (!parser) {
        throw std::bad_alloc();
    }
    Walk walk{.parser = parser.get()};
    XML_SetUserData(parser.get(), &walk);
    XML_SetElementHandler(parser.get(), beginElement, endElement);
    XML_SetStartDoctypeDeclHandler(parser.get(), beginDoctype);
    XML_SetEntityDeclHandler(parser.get(), declareEntity);
    return XML_Parse(parser.get(), utf8.data(), static_cast<int>(utf8.size()), XML_TRUE) ==
           XML_STATUS_OK;
}

} // namespace tovik::config
