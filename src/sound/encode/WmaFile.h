// SPDX-License-Identifier: GPL-3.0-or-later
// A file of Windows Media Audio that is being written, and where one comes from: FFmpeg's encoder,
// which lives in the module of FFmpeg's decoders. One thread at a time; everything may wait for the
// disk.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace tovik::sound {

class WmaFile {
public:
    /// A file that was not finished stays as it is.
    virtual ~WmaFile() = default;

    /// Before the first samples. Text in UTF-8.
    virtual void setTag(const std::string& name, const std::string& value) = 0;

    /// Takes interleaved stereo. False once something failed.
    virtual bool write(std::span<const std::int16_t> samples) = 0;

    /// Writes the rest and what the head has to tell, and closes the file.
    virtual bool finish() = 0;

    /// Why it failed, as the system says it.
    [[nodiscard]] virtual std::string failure() const = 0;
};

struct WmaForm {
    int rate = 0;    ///< Hz
    int bitrate = 0; ///< bits a second
};

/// What the module hands over, under the name `kWmaSymbol`.
struct WmaModule {
    std::uint32_t version; ///< kWmaVersion of when it was built

    /// Makes or empties the file; null and the reason when it cannot.
    std::unique_ptr<WmaFile> (*create)(const std::string& path, const WmaForm& form,
                                       std::string& failure);
};

inline constexpr std::uint32_t kWmaVersion = 1;
inline constexpr const char* kWmaSymbol = "tovikWmaModule";

/// The same by the module, which the first call loads (tens of milliseconds).
[[nodiscard]] std::unique_ptr<WmaFile> createWmaFile(const std::string& path, const WmaForm& form,
                                                     std::string& failure);

} // namespace tovik::sound
