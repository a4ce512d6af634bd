// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/ErrorTexts.h"

#include <algorithm>
#include <array>

namespace tovik::config {

namespace {

struct Row {
    std::int32_t code;
    std::string_view text;
};

constexpr std::array kRows{
    Row{0, "All is OK"},
    Row{1, "Memory Error"},
    Row{2, "Can't Open the File"},
    Row{3, "Can't Find a Free Sound Driver"},
    Row{4, "The Sample Buffer Was Lost - Please Report This!"},
    Row{5, "Invalid Handle"},
    Row{6, "Unsupported Format"},
    Row{7, "Invalid Playback Position"},
    Row{8, "BASS_Init Has Not Been Successfully Called"},
    Row{9, "BASS_Start Has Not Been Successfully Called"},
    Row{12, "No CD in drive"},
    Row{13, "Can't Play the Selected CD Track"},
    Row{14, "Already Initialized"},
    Row{16, "Not Paused"},
    Row{17, "Not An Audio Track"},
    Row{18, "Can't Get a Free Channel"},
    Row{19, "An Illegal Type Was Specified"},
    Row{20, "An Illegal Parameter Was Specified"},
    Row{21, "No 3D Support"},
    Row{22, "No EAX Support"},
    Row{23, "Illegal Device Number"},
    Row{24, "Not Playing"},
    Row{25, "Illegal Sample Rate"},
    Row{27, "The Stream is Not a File Stream (WAV/MP3)"},
    Row{29, "No Hardware Voices Available"},
    Row{31, "The MOD music has no sequence data"},
    Row{32, "No Internet connection could be opened"},
    Row{33, "Couldn't create the file"},
    Row{34, "Effects are not enabled"},
    Row{35, "The channel is playing"},
    Row{37, "The requested data is not available"},
    Row{38, "The channel is a 'decoding channel'"},
    Row{-1, "Some Other Mystery Error"},
};

constexpr std::int32_t kNoCode = -1;

} // namespace

std::string_view BassErrorText(std::int32_t code) noexcept {
    const auto* const row = std::find_if(kRows.begin(), kRows.end(), [code](const Row& candidate) {
        return candidate.code == code;
    });
    return row == kRows.end() ? std::string_view() : row->text;
}

void ShowErrorBox(host::Dialogs& dialogs, std::string_view text, std::int32_t code) {
    std::string message(text);
    if (code != kNoCode) {
        message += "\r\n\r\nError Code : " + std::to_string(code);
    }
    dialogs.showMessage({.text = message, .title = "Error", .icon = host::MessageIcon::Critical});
}

void ShowRoutineError(host::Dialogs& dialogs, std::string_view routine, std::string_view module,
                      const base::RuntimeError& error) {
    const std::string message = "Error in routine : " + std::string(routine) +
                                "\r\nin module : " + std::string(module) + "\r\nError #" +
                                std::to_string(error.number()) + " " + error.description();
    ShowErrorBox(dialogs, message, kNoCode);
}

} // namespace tovik::config
