// SPDX-License-Identifier: GPL-3.0-or-later
// A session of a desktop for tests, by the X Session Management Protocol. Prints where it is found
// ("at ADDRESS"), then what its one program does: "client NAME", "restart WORD|WORD...", "saved",
// "gone". Reads what to tell it, a word a line: save, cancel, die.
#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>

#include <array>
#include <cstdio>
#include <poll.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

SmsConn client = nullptr;

void say(const std::string& line) {
    static_cast<void>(std::printf("%s\n", line.c_str()));
    static_cast<void>(std::fflush(stdout));
}

int letEverybodyIn(char* /*host*/) {
    return 1;
}

int registerClient(SmsConn connection, SmPointer /*data*/, char* previous) {
    client = connection;
    char* const name = previous != nullptr ? previous : SmsGenerateClientID(connection);
    SmsRegisterClientReply(connection, name);
    say(std::string("client ") + name);
    if (previous == nullptr) { // the protocol wants this of a new one
        SmsSaveYourself(connection, SmSaveLocal, 0, SmInteractStyleNone, 0);
    }
    return 1;
}

void saved(SmsConn connection, SmPointer /*data*/, int /*success*/) {
    SmsSaveComplete(connection);
    say("saved");
}

void setProperties(SmsConn /*connection*/, SmPointer /*data*/, int count, SmProp** properties) {
    for (int i = 0; i < count; ++i) {
        SmProp* const property = properties[i];
        if (std::string(property->name) == SmRestartCommand) {
            std::string words;
            for (int word = 0; word < property->num_vals; ++word) {
                const SmPropValue& value = property->vals[word];
                words += word == 0 ? "" : "|";
                words.append(static_cast<const char*>(value.value),
                             static_cast<std::size_t>(value.length));
            }
            say("restart " + words);
        }
        SmFreeProperty(property);
    }
}

void closeConnection(SmsConn connection, SmPointer /*data*/, int /*count*/, char** /*reasons*/) {
    const IceConn ice = SmsGetIceConnection(connection);
    SmsCleanUp(connection);
    IceSetShutdownNegotiation(ice, 0);
    IceCloseConnection(ice);
    client = nullptr;
    say("gone");
}

int newClient(SmsConn /*connection*/, SmPointer /*data*/, unsigned long* mask,
              SmsCallbacks* callbacks, char** /*failure*/) {
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
            SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask |
            SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    callbacks->register_client.callback = registerClient;
    callbacks->interact_request.callback = [](SmsConn, SmPointer, int) {};
    callbacks->interact_done.callback = [](SmsConn, SmPointer, int) {};
    callbacks->save_yourself_request.callback = [](SmsConn, SmPointer, int, int, int, int, int) {};
    callbacks->save_yourself_phase2_request.callback = [](SmsConn, SmPointer) {};
    callbacks->save_yourself_done.callback = saved;
    callbacks->close_connection.callback = closeConnection;
    callbacks->set_properties.callback = setProperties;
    callbacks->delete_properties.callback = [](SmsConn, SmPointer, int, char**) {};
    callbacks->get_properties.callback = [](SmsConn, SmPointer) {};
    return 1;
}

/// False at the end of the input.
bool obey() {
    std::array<char, 64> line{};
    if (std::fgets(line.data(), static_cast<int>(line.size()), stdin) == nullptr) {
        return false;
    }
    const std::string word(line.data());
    if (client == nullptr) {
        return true;
    }
    if (word == "save\n") {
        SmsSaveYourself(client, SmSaveBoth, 1, SmInteractStyleNone, 0);
    } else if (word == "cancel\n") {
        SmsShutdownCancelled(client);
    } else if (word == "die\n") {
        SmsDie(client);
    }
    return true;
}

/// The program may end at any time.
void connectionBroke(IceConn connection) {
    IceSetShutdownNegotiation(connection, 0);
    IceCloseConnection(connection);
    client = nullptr;
    say("gone");
}

} // namespace

int main() {
    std::array<char, 256> error{};
    int count = 0;
    IceListenObj* listeners = nullptr;
    IceSetIOErrorHandler([](IceConn) {});
    if (SmsInitialize("tovik tests", "1", newClient, nullptr, letEverybodyIn,
                      static_cast<int>(error.size()), error.data()) == 0 ||
        IceListenForConnections(&count, &listeners, static_cast<int>(error.size()), error.data()) ==
            0) {
        say(error.data());
        return 1;
    }
    for (int i = 0; i < count; ++i) {
        IceSetHostBasedAuthProc(listeners[i], letEverybodyIn);
    }
    say(std::string("at ") + IceComposeNetworkIdList(count, listeners));
    std::vector<IceConn> connections;
    for (;;) {
        std::vector<pollfd> wanted{{STDIN_FILENO, POLLIN, 0}};
        for (int i = 0; i < count; ++i) {
            wanted.push_back({IceGetListenConnectionNumber(listeners[i]), POLLIN, 0});
        }
        for (const IceConn connection : connections) {
            wanted.push_back({IceConnectionNumber(connection), POLLIN, 0});
        }
        ::poll(wanted.data(), wanted.size(), -1);
        if (wanted[0].revents != 0 && !obey()) {
            return 0;
        }
        const auto listening = static_cast<std::size_t>(count);
        std::vector<IceConn> left;
        for (std::size_t i = 0; i < connections.size(); ++i) {
            if (wanted[1 + listening + i].revents != 0) {
                int replied = 0;
                const IceProcessMessagesStatus status =
                    IceProcessMessages(connections[i], nullptr, &replied);
                if (status != IceProcessMessagesSuccess) {
                    if (status == IceProcessMessagesIOError) {
                        connectionBroke(connections[i]);
                    }
                    continue;
                }
            }
            left.push_back(connections[i]);
        }
        connections = left;
        for (std::size_t i = 0; i < listening; ++i) {
            if (wanted[1 + i].revents != 0) {
                IceAcceptStatus status{};
                const IceConn connection = IceAcceptConnection(listeners[i], &status);
                if (connection != nullptr) {
                    connections.push_back(connection);
                }
            }
        }
    }
}
