// SPDX-License-Identifier: GPL-3.0-or-later
// The one name that the module shows: what reads and writes tags. Any thread.
#include "tags/taglib/EditTag.h"
#include "tags/taglib/ReadFacts.h"
#include "tags/TagModule.h"

extern "C" {
[[gnu::visibility("default")]] extern const tovik::tags::TagModule tovikTags;

const tovik::tags::TagModule tovikTags = {
    tovik::tags::kTagVersion,           &tovik::tags::taglib::readFacts,
    &tovik::tags::taglib::readPictures, &tovik::tags::taglib::readId3v2,
    &tovik::tags::taglib::readOther,    &tovik::tags::taglib::changeOther,
};
}
