// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/Id3v1Bytes.h"

#include "base/Text.h"

namespace tovik::tags {

namespace {

std::string padded(std::string_view text, std::size_t width) {
    std::string field(base::cutToWidth(text, width));
    field.resize(width, ' ');
    return field;
}

} // namespace

std::string id3v1Bytes(const Id3v1Fields& fields) {
    std::string tag(kId3v1Mark);
    tag += padded(fields.title, kTextWidth);
    tag += padded(fields.artist, kTextWidth);
    tag += padded(fields.album, kTextWidth);
    tag += padded(fields.year, kYearWidth);
    tag += padded(fields.comment, kCommentWidth);
    tag += '\0';
    tag += static_cast<char>(fields.track);
    tag += static_cast<char>(fields.genre);
    return tag;
}

} // namespace tovik::tags
