// SPDX-License-Identifier: GPL-3.0-or-later
#include "Badge.h"
#include "base/AtomicFile.h"
#include "base/ErrorStream.h"
#include "BitmapFile.h"
#include "PictureSet.h"
#include "Preview.h"
#include "skin/PicturePrint.h"
#include "Stand.h"

#include <charconv>
#include <filesystem>
#include <optional>
#include <QGuiApplication>
#include <QString>
#include <string>
#include <vector>

namespace tovik::skinart {

namespace {

constexpr std::string_view kUsage =
    "tovik_skin_art FOLDER [--scale N]             the pictures of the skin, as bitmaps\n"
    "tovik_skin_art --window FOLDER [--scale N]    the pictures of the window's own elements\n"
    "tovik_skin_art --fine FOLDER [--scale N]      both for dense screens, by their prints, and a "
    "list for rcc\n"
    "tovik_skin_art --preview FILE.png PANEL [--scale N]   a panel, 1 to 5; 6: the list open\n"
    "tovik_skin_art --splash FILE.png [--scale N]  the picture of the start\n"
    "tovik_skin_art --icon FILE.png SIZE           the program's icon\n"
    "tovik_skin_art --icons FOLDER                 the same in its sizes and as SVG, and those of "
    "the tray";

constexpr int kLargestScale = 8;
constexpr int kLargestIcon = 1024;

bool write(const std::string& path, std::string_view bytes) {
    const std::error_code failure = base::replaceFile(path, bytes, base::Flush::No);
    if (failure) {
        base::tell(path + ": " + failure.message());
    }
    return !failure;
}

bool writeAll(const Drawings& drawings, const std::string& folder, int scale) {
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    for (const Drawing& drawing : drawings) {
        const std::string path = folder + "/" + drawing.name + ".bmp";
        if (!write(path, bitmapBytes(rendered(drawing, scale)))) {
            return false;
        }
    }
    return true;
}

/// A set for dense screens. What it belongs to is told by the plain picture, byte for byte: in a
/// skin where that one is replaced, it is not found.
bool writeFine(const std::string& folder, int scale) {
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    std::string list = "<RCC><qresource prefix=\"/fine/" + std::to_string(scale) + "\">\n";
    for (const Drawings& set :
         {skinDrawings(), miniSkinDrawings(), windowDrawings(), miniWindowDrawings()}) {
        for (const Drawing& drawing : set) {
            const std::string plain = bitmapBytes(rendered(drawing, 1));
            const std::string name =
                skin::printName(skin::picturePrint(drawing.name, plain)) + ".bmp";
            if (!write(folder + "/" + name, bitmapBytes(rendered(drawing, scale)))) {
                return false;
            }
            list += "<file>" + name + "</file>\n";
        }
    }
    return write(folder + "/fine.qrc", list + "</qresource></RCC>\n");
}

bool save(const QImage& image, const std::string& path) {
    if (image.save(QString::fromStdString(path))) {
        return true;
    }
    base::tell(path + ": not written");
    return false;
}

/// The icons that a desktop asks for.
bool writeIcons(const std::string& folder) {
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    bool done = write(folder + "/tovik.svg", programIconSvg());
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
        done = done && save(programIcon(size), folder + "/tovik-" + std::to_string(size) + ".png");
    }
    for (int style = 1; style <= kTrayStyles; ++style) {
        for (const int size : {16, 22, 24, 32, 48, 64}) {
            done = done && save(trayIcon(style, size), folder + "/tray" + std::to_string(style) +
                                                           "-" + std::to_string(size) + ".png");
        }
    }
    return done;
}

/// A number from 1 to the largest; 0 for anything else.
int numberOf(const std::string& text, int largest) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() && value >= 1 &&
                   value <= largest
               ? value
               : 0;
}

/// Takes "--scale N" off the words. 0 for a bad one.
int takeScale(std::vector<std::string>& words) {
    if (words.size() < 2 || words.at(words.size() - 2) != "--scale") {
        return 1;
    }
    const int scale = numberOf(words.back(), kLargestScale);
    words.resize(words.size() - 2);
    return scale;
}

int run(std::vector<std::string> words) {
    const int scale = takeScale(words);
    const auto is = [&words](std::string_view mode, std::size_t count) {
        return words.size() == count && words.front() == mode;
    };
    bool done = false;
    if (scale == 0) {
        base::tell(kUsage);
    } else if (words.size() == 1 && !words.front().starts_with("--")) {
        done = writeAll(skinDrawings(), words.front(), scale) &&
               writeAll(miniSkinDrawings(), words.front(), scale);
    } else if (is("--window", 2)) {
        done = writeAll(windowDrawings(), words.at(1), scale) &&
               writeAll(miniWindowDrawings(), words.at(1), scale);
    } else if (is("--fine", 2)) {
        done = writeFine(words.at(1), scale);
    } else if (is("--icons", 2)) {
        done = writeIcons(words.at(1));
    } else if (is("--splash", 2)) {
        done = save(splashPicture(scale), words.at(1));
    } else if (is("--preview", 3) && numberOf(words.at(2), 6) > 0) {
        done = save(previewOf(numberOf(words.at(2), 6), scale), words.at(1));
    } else if (is("--icon", 3) && numberOf(words.at(2), kLargestIcon) > 0) {
        done = save(programIcon(numberOf(words.at(2), kLargestIcon)), words.at(1));
    } else {
        base::tell(kUsage);
    }
    return done ? 0 : 1;
}

} // namespace

} // namespace tovik::skinart

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    // Pictures need no window system; only the words of a preview need its fonts.
    std::optional<QGuiApplication> application;
    if (!words.empty() && words.front() == "--preview") {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application.emplace(argc, argv);
    }
    return tovik::skinart::run(words);
}
