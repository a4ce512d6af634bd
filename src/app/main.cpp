// SPDX-License-Identifier: GPL-3.0-or-later
// The way into the program: reads the options and does what they ask for.
#include "app/BuiltWith.h"
#include "app/OutputChoice.h"
#include "app/Play.h"
#include "app/Render.h"
#include "base/ErrorStream.h"
#include "desktop/TypeExport.h"
#include "host/CommandLine.h"
#include "host/DataFolder.h"
#include "host/Environment.h"
#include "host/Paths.h"
#include "host/system/DetachedPrograms.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <span>
#include <string>
#include <vector>

namespace {

int forgetTypes(const tovik::host::CommandLine& line, const tovik::host::Environment& environment) {
    using namespace tovik;
    const std::string dataFolder = host::chooseDataFolder(environment, line.dataFolder);
    const auto places = desktop::TypePlaces::of(environment, dataFolder);
    const auto failure = desktop::forgetTypes(places);
    const host::Paths paths(dataFolder);
    host::DetachedPrograms programs(paths, environment.searchPath);
    desktop::tellOfForgotten(programs, places);
    if (failure) {
        base::tell("cannot forget all file types: " + failure.message());
    }
    return failure ? EXIT_FAILURE : EXIT_SUCCESS;
}

int run(std::span<const std::string> words) {
    using namespace tovik;
    const host::Environment environment = host::Environment::current();
    const auto parsed = host::parseCommandLine(words, environment.workingFolder);
    if (const auto* error = std::get_if<host::UsageError>(&parsed)) {
        base::tell(error->text);
        return host::kUsageStatus;
    }
    const auto& line = std::get<host::CommandLine>(parsed);
    if (line.help) {
        return std::fputs(host::helpText().c_str(), stdout) < 0 ? EXIT_FAILURE : EXIT_SUCCESS;
    }
    if (line.version) {
        return std::printf("tovik %s\n", app::programVersion()) < 0 ? EXIT_FAILURE : EXIT_SUCCESS;
    }
    if (line.device == host::kListDevices) {
        return app::listOutputs() ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    if (const auto problem = host::homeProblem(environment, line.dataFolder)) {
        base::tell(*problem);
        return EXIT_FAILURE;
    }
    if (line.forgetTypes) {
        return forgetTypes(line, environment);
    }
    return line.renderFile ? app::render(line, environment) : app::play(line, environment);
}

} // namespace

int main(int argc, char* argv[]) {
    try {
        const std::vector<std::string> words(argv + 1, argv + argc);
        return run(words);
    } catch (const std::exception& error) {
        tovik::base::tell(error.what());
        return EXIT_FAILURE;
    }
}
