// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/AlsaMessages.h"

#include <dlfcn.h>

namespace tovik::sound {

namespace {

// The types of snd_lib_error_set_handler, as the ALSA library documents it. Its messages come as a
// printf format with arguments, which nobody reads here.
using Handler = void (*)(const char* file, int line, const char* function, int error,
                         const char* format, ...);
using SetHandler = int (*)(Handler);

// NOLINTNEXTLINE(cert-dcl50-cpp): the library asks for a variadic function.
void ignore(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
            const char* /*format*/, ...) {}

} // namespace

void silenceAlsaMessages() noexcept {
    // Only if SDL has loaded it, which depends on how that was built.
    void* const library = ::dlopen("libasound.so.2", RTLD_NOW | RTLD_NOLOAD);
    if (library == nullptr) {
        return;
    }
    void* const symbol = ::dlsym(library, "snd_lib_error_set_handler");
    if (symbol != nullptr) {
        static_cast<void>(reinterpret_cast<SetHandler>(symbol)(ignore));
    }
    ::dlclose(library);
}

} // namespace tovik::sound
