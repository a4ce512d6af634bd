// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainTexts.h"

#include <algorithm>
#include <array>

namespace tovik::window {

namespace {

using N = MainElement;
using config::TextKind;

struct Named {
    std::string_view name;
    N element;
};

/// The elements that have words of a language.
constexpr std::array kElements{
    Named{"lbltag", N::lbltag},
    Named{"lblPos", N::lblPos},
    Named{"Picture1", N::Picture1},
    Named{"backupIMG", N::backupIMG},
    Named{"playup", N::playup},
    Named{"pauseup", N::pauseup},
    Named{"stopup", N::stopup},
    Named{"nextup", N::nextup},
    Named{"fileup", N::fileup},
    Named{"minon", N::minon},
    Named{"closeup", N::closeup},
    Named{"Label2", N::Label2},
    Named{"ShuffleBT", N::ShuffleBT},
    Named{"LoopBT", N::LoopBT},
    Named{"CfdBT", N::CfdBT},
    Named{"sldBT", N::sldBT},
    Named{"EQ_on", N::EQ_on},
    Named{"presetbt", N::presetbt},
    Named{"resetbt", N::resetbt},
    Named{"addfileIMG", N::addfileIMG},
    Named{"adddirIMG", N::adddirIMG},
    Named{"addlocIMG", N::addlocIMG},
    Named{"delIMG", N::delIMG},
    Named{"clrIMG", N::clrIMG},
    Named{"loadImg", N::loadImg},
    Named{"SaveImg", N::SaveImg},
    Named{"ripperbt", N::ripperbt},
    Named{"Image1", N::Image1},
    Named{"timed", N::timed},
    Named{"Label3", N::Label3},
    Named{"Label4", N::Label4},
    Named{"slDRV", N::slDRV},
    Named{"musicSearchTxt", N::musicSearchTxt},
    Named{"mainbt", N::mainbt},
    Named{"eqbt", N::eqbt},
    Named{"plbt", N::plbt},
    Named{"ripbt", N::ripbt},
    Named{"irtbt", N::irtbt},
    Named{"prebt", N::prebt},
    Named{"stopNote", N::stopNote},
    Named{"posbar", N::posbar},
    Named{"track", N::track},
    Named{"volbar", N::volbar},
    Named{"volbarIMG", N::volbarIMG},
    Named{"balbar", N::balbar},
    Named{"qpl_but", N::qpl_but},
    Named{"EQ_off", N::EQ_off},
    Named{"minmodeUP", N::minmodeUP},
    Named{"srchIMG", N::srchIMG},
    Named{"cmbCDDrives", N::cmbCDDrives},
    Named{"lblinfo", N::lblinfo},
    Named{"shwchange", N::shwchange},
    Named{"Shuffle", N::Shuffle},
    Named{"loopImg", N::loopImg},
    Named{"CFD", N::CFD},
    Named{"Sld", N::Sld},
    Named{"List1", N::List1},
    Named{"stdSS", N::stdSS},
    Named{"lstTracks", N::lstTracks},
    Named{"RadioLst", N::RadioLst},
    Named{"Text4", N::Text4},
    Named{"cancelrip", N::cancelrip},
    Named{"riplbl", N::riplbl},
    Named{"songname", N::songname},
    Named{"mono_img", N::mono_img},
    Named{"musicinfo_img", N::musicinfo_img},
    Named{"lblRDinfo", N::lblRDinfo},
    Named{"eq_sld", N::eq_sld},
    Named{"eqHeading", N::eqHeading},
};

void put(ui::Element& element, TextKind kind, std::string_view text) {
    switch (kind) {
    case TextKind::Tooltip:
        element.tooltip = text;
        break;
    case TextKind::Name:
        element.name = text;
        break;
    default:
        element.caption = text;
        break;
    }
}

} // namespace

void MainTexts::setText(std::string_view element, int index, TextKind kind, std::string_view text) {
    if (kind == TextKind::Kept) {
        publicText_ = text;
        return;
    }
    const auto* const row = std::ranges::find(kElements, element, &Named::name);
    if (row == kElements.end()) {
        return;
    }
    const std::size_t count = elements_.count(row->element);
    if (index == config::kEveryElement) {
        for (std::size_t i = 0; i < count; ++i) {
            put(elements_.touch(row->element, i), kind, text);
        }
    } else if (index >= 0 && static_cast<std::size_t>(index) < count) {
        put(elements_.touch(row->element, static_cast<std::size_t>(index)), kind, text);
    }
}

} // namespace tovik::window
