// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainBindings.h"

#include <array>

namespace tovik::window {

namespace {

using N = MainElement;

/// A picture for an element whose size the layout tells.
constexpr Binding placed(std::string_view file, N name, std::size_t index = 0) {
    return {.file = file, .to = {name, index}};
}

/// A picture for an element that is as large as the picture.
constexpr Binding sized(std::string_view file, N name, std::size_t index = 0) {
    return {.file = file, .to = {name, index}, .takesSize = true};
}

constexpr Binding copied(Slot from, Slot to) {
    return {.file = {}, .to = to, .from = from};
}

constexpr auto kBindings = std::to_array<Binding>({
    placed("qpl_exp", N::qpl_exp),
    placed("qpl_col", N::qpl_col),
    sized("main", N::mainIMG),
    placed("screen", N::ScreenIMG),
    placed("infowin", N::infoWin),
    placed("plwin", N::fxWin),
    placed("poswin", N::poswin),
    placed("volwin", N::volwin),
    placed("balwin", N::balwin),
    placed("scroller", N::Picture3),
    sized("btn_rip", N::ripperbt),
    sized("btn_play", N::Image1, 0),
    sized("btn_addfile", N::addfileIMG),
    sized("btn_add", N::Image1, 1),
    sized("btn_remove", N::Image1, 2),
    sized("btn_adddir", N::adddirIMG),
    sized("btn_addloc", N::addlocIMG),
    sized("btn_delete", N::delIMG),
    sized("btn_clear", N::clrIMG),
    sized("btn_load", N::loadImg),
    sized("btn_save", N::SaveImg),
    sized("btn_preset", N::presetbt),
    sized("btn_reset", N::resetbt),
    sized("btn_cancel", N::cancelrip),
    sized("btn_eq_off", N::EQ_off),
    sized("btn_eq_on", N::EQ_on),
    sized("btn_save_on", N::Image1, 3),
    sized("btn_save_off", N::Image1, 4),
    placed("text", N::textImg),
    copied({N::textImg}, {N::songname2}),
    placed("text2", N::textImg2),
    sized("btn_search", N::srchIMG),
    placed("0", N::Digit, 0),
    placed("1", N::Digit, 1),
    placed("2", N::Digit, 2),
    placed("3", N::Digit, 3),
    placed("4", N::Digit, 4),
    placed("5", N::Digit, 5),
    placed("6", N::Digit, 6),
    placed("7", N::Digit, 7),
    placed("8", N::Digit, 8),
    placed("9", N::Digit, 9),
    placed("sabar", N::Picture2),
    sized("eq_bar", N::Picture7),
    // The tabs: up, down, over. The row of over faces runs backwards.
    placed("mainbt", N::mainbt),
    copied({N::mainbt}, {N::Image2, 0}),
    placed("eqbt", N::eqbt),
    copied({N::eqbt}, {N::Image2, 1}),
    placed("plbt", N::plbt),
    copied({N::plbt}, {N::Image2, 2}),
    placed("ripbt", N::ripbt),
    copied({N::ripbt}, {N::Image2, 3}),
    placed("irtbt", N::irtbt),
    copied({N::irtbt}, {N::Image2, 4}),
    placed("prebt", N::prebt),
    copied({N::prebt}, {N::Image2, 5}),
    placed("mainbt_down", N::Image2, 6),
    placed("eqbt_down", N::Image2, 7),
    placed("plbt_down", N::Image2, 8),
    placed("ripbt_down", N::Image2, 9),
    placed("irtbt_down", N::Image2, 10),
    placed("prebt_down", N::Image2, 11),
    placed("mainbt_over", N::Image2, 17),
    placed("eqbt_over", N::Image2, 16),
    placed("plbt_over", N::Image2, 15),
    placed("ripbt_over", N::Image2, 14),
    placed("irtbt_over", N::Image2, 13),
    placed("prebt_over", N::Image2, 12),
    sized("icon", N::iconIMG),
    // The time: minus, two digits, colon, two digits.
    placed("dash", N::timed, 0),
    copied({N::Digit, 0}, {N::timed, 1}),
    copied({N::Digit, 0}, {N::timed, 2}),
    placed("dbldot", N::timed, 3),
    copied({N::Digit, 0}, {N::timed, 4}),
    copied({N::Digit, 0}, {N::timed, 5}),
    // Buttons of the window and of the transport, up.
    sized("btn_close_up", N::closeup),
    sized("btn_min_up", N::minon),
    sized("btn_minmode_up", N::minmodeUP),
    copied({N::minmodeUP}, {N::Image4}),
    placed("btn_prev_up", N::backupIMG),
    placed("btn_play_up", N::playup),
    placed("btn_pause_up", N::pauseup),
    placed("btn_stop_up", N::stopup),
    placed("btn_next_up", N::nextup),
    placed("btn_file_up", N::fileup),
    // Transport, down and over.
    placed("btn_prev_down", N::backdownIMG),
    placed("btn_play_down", N::playdown),
    placed("btn_pause_down", N::pausedown),
    placed("btn_stop_down", N::stopdown),
    placed("btn_next_down", N::nextdown),
    placed("btn_file_down", N::filedown),
    placed("btn_prev_over", N::tmp, 6),
    placed("btn_play_over", N::tmp, 7),
    placed("btn_pause_over", N::tmp, 8),
    placed("btn_stop_over", N::tmp, 9),
    placed("btn_next_over", N::tmp, 10),
    placed("btn_file_over", N::tmp, 11),
    // Modes, off and on.
    placed("btn_shuffle_off", N::ShuffleBT),
    placed("btn_loop_off", N::LoopBT),
    placed("btn_cfd_off", N::CfdBT),
    placed("btn_sld_off", N::sldBT),
    placed("btn_shuffle_on", N::Image6, 4),
    placed("btn_loop_on", N::Image6, 5),
    placed("btn_cfd_on", N::Image6, 6),
    placed("btn_sld_on", N::Image6, 7),
    // Buttons of the window, down and over.
    sized("btn_close_down", N::closedown),
    sized("btn_min_down", N::minoff),
    sized("btn_minmode_down", N::minmodeDown),
    placed("btn_close_over", N::tmp, 12),
    placed("btn_min_over", N::tmp, 13),
    placed("btn_minmode_over", N::Image5),
    // Indicators.
    placed("cfd", N::CFD),
    placed("cfd2", N::CFD2),
    placed("loop", N::loopImg),
    placed("loop2", N::LoopImg2),
    placed("shuffle", N::Shuffle),
    placed("shuffle2", N::ShuffleDown),
    placed("sld", N::Sld),
    placed("sld2", N::sld2),
});

constexpr auto kFaces = std::to_array<ButtonFace>({
    {N::backupIMG, N::backdownIMG, {N::tmp, 6}, {N::tmp, 0}},
    {N::playup, N::playdown, {N::tmp, 7}, {N::tmp, 1}},
    {N::pauseup, N::pausedown, {N::tmp, 8}, {N::tmp, 2}},
    {N::stopup, N::stopdown, {N::tmp, 9}, {N::tmp, 3}},
    {N::nextup, N::nextdown, {N::tmp, 10}, {N::tmp, 4}},
    {N::fileup, N::filedown, {N::tmp, 11}, {N::tmp, 5}},
    {N::closeup, N::closedown, {N::tmp, 12}, {N::tmp, 14}},
    {N::minon, N::minoff, {N::tmp, 13}, {N::tmp, 15}},
    {N::minmodeUP, N::minmodeDown, {N::Image5}, {N::Image4}},
});

constexpr auto kKept = std::to_array<KeptFace>({
    {N::minmodeDown, {N::tmp, 16}},
    {N::ShuffleBT, {N::Image8, 0}},
    {N::LoopBT, {N::Image8, 1}},
    {N::CfdBT, {N::Image8, 2}},
    {N::sldBT, {N::Image8, 3}},
});

} // namespace

std::span<const Binding> mainBindings() noexcept {
    return kBindings;
}

std::span<const ButtonFace> buttonFaces() noexcept {
    return kFaces;
}

std::span<const KeptFace> keptFaces() noexcept {
    return kKept;
}

} // namespace tovik::window
