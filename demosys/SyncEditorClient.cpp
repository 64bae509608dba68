#include "demosys/SyncEditorClient.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <netdb.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "demosys/SyncPlayer.h"
#include "demosys/SyncTrack.h"

static const unsigned int retryMs = 1000;
static const unsigned int answerMs = 3000;  // to connect and greet, before we give up

bool SyncEditorClient::parseAddress(const std::string& text, std::string& host, unsigned short& port) {
    host = "127.0.0.1";
    port = defaultPort;
    size_t colon = text.rfind(':');
    std::string name = colon == std::string::npos ? text : text.substr(0, colon);
    if (!name.empty()) host = name;
    if (colon == std::string::npos) return true;
    std::string digits = text.substr(colon + 1);
    if (digits.empty() || digits.size() > 5 || digits.find_first_not_of("0123456789") != std::string::npos) return false;
    unsigned long number = std::stoul(digits);
    if (number == 0 || number > 65535) return false;
    port = static_cast<unsigned short>(number);
    return true;
}

SyncEditorClient::SyncEditorClient(SyncPlayer& player, const std::string& host, unsigned short port)
    : player(player), address(host + ":" + std::to_string(port)) {
    std::memset(&editor, 0, sizeof editor);
    // Resolved once, here: a name lookup could stall the frame loop.
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(host.c_str(), nullptr, &hints, &found) == 0 && found != nullptr) {
        std::memcpy(&editor, found->ai_addr, sizeof editor);
        editor.sin_port = htons(port);
        resolved = true;
    } else {
        std::cout << "Sync editor : cannot resolve '" << host << "'" << std::endl;
    }
    if (found != nullptr) freeaddrinfo(found);
}

SyncEditorClient::~SyncEditorClient() {
    if (socket >= 0) ::close(socket);
}

bool SyncEditorClient::isConnected() const { return state == CONNECTED; }

const std::string& SyncEditorClient::getAddress() const { return address; }

void SyncEditorClient::connect(unsigned int wallMs) {
    attempted = true;
    attemptAt = wallMs;
    socket = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (socket < 0) return;
    int on = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    incoming.clear();
    outgoing.clear();
    if (::connect(socket, reinterpret_cast<sockaddr*>(&editor), sizeof editor) == 0 || errno == EINPROGRESS) {
        state = CONNECTING;
        return;
    }
    close(std::strerror(errno));
}

void SyncEditorClient::close(const std::string& why) {
    if (state == CONNECTED) {
        std::cout << "Sync editor connection closed : " << why << std::endl;
    } else if (!reportedAbsent) {
        std::cout << "Sync editor not found at " << address << ", playing the track files and retrying every second"
                  << (why.empty() ? "" : " (" + why + ")") << std::endl;
        reportedAbsent = true;
    }
    if (socket >= 0) ::close(socket);
    socket = -1;
    state = IDLE;
    attemptAt = now;  // the next attempt comes a second after this one failed
}

bool SyncEditorClient::finishConnect() {
    pollfd ready{socket, POLLOUT, 0};
    if (::poll(&ready, 1, 0) <= 0) return true;  // still on its way
    int error = 0;
    socklen_t size = sizeof error;
    if (getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) != 0 || error != 0) {
        close(std::strerror(error));
        return false;
    }
    outgoing = SyncProtocol::clientGreeting;
    state = GREETING;
    return true;
}

bool SyncEditorClient::flush() {
    while (!outgoing.empty()) {
        ssize_t sent = ::send(socket, outgoing.data(), outgoing.size(), MSG_NOSIGNAL);
        if (sent < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR)) return true;
        if (sent <= 0) {
            close(std::strerror(errno));
            return false;
        }
        outgoing.erase(0, static_cast<size_t>(sent));
    }
    return true;
}

bool SyncEditorClient::receive() {
    char buffer[4096];
    for (;;) {
        ssize_t count = ::recv(socket, buffer, sizeof buffer, 0);
        if (count > 0) {
            incoming.append(buffer, static_cast<size_t>(count));
            if (!(state == GREETING ? readGreeting() : applyMessages())) return false;
            continue;
        }
        if (count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR)) return true;
        close(count == 0 ? "the editor went away" : std::strerror(errno));
        return false;
    }
}

bool SyncEditorClient::readGreeting() {
    const std::string& expected = SyncProtocol::editorGreeting;
    size_t have = std::min(incoming.size(), expected.size());
    if (incoming.compare(0, have, expected, 0, have) != 0) {
        close("the editor did not greet as expected");
        return false;
    }
    if (have < expected.size()) return true;
    incoming.erase(0, expected.size());
    state = CONNECTED;
    reportedAbsent = false;
    lastRow = -1;
    std::cout << "Sync editor connected : " << address << std::endl;
    // The editor holds the truth now: it answers every request with the track's keys.
    for (size_t i = 0; i < player.countTracks(); ++i) {
        SyncTrack* track = player.getTrack(i);
        track->clear();
        SyncProtocol::appendGetTrack(outgoing, track->getName());
    }
    return applyMessages();
}

bool SyncEditorClient::applyMessages() {
    size_t used = 0;
    for (;;) {
        SyncProtocol::Message message;
        size_t length = 0;
        std::string problem;
        auto bytes = reinterpret_cast<const unsigned char*>(incoming.data()) + used;
        SyncProtocol::Result result = SyncProtocol::decode(bytes, incoming.size() - used, message, length, problem);
        if (result == SyncProtocol::INCOMPLETE) break;
        if (result == SyncProtocol::MALFORMED) {
            close("malformed message, " + problem);
            return false;
        }
        used += length;
        if (!apply(message)) return false;
    }
    incoming.erase(0, used);
    return true;
}

bool SyncEditorClient::apply(const SyncProtocol::Message& message) {
    bool keyed = message.command == SyncProtocol::SET_KEY || message.command == SyncProtocol::DELETE_KEY;
    SyncTrack* track = keyed ? player.getTrack(message.track) : nullptr;
    if (keyed && track == nullptr) {
        close("malformed message, no track " + std::to_string(message.track));
        return false;
    }
    switch (message.command) {
        case SyncProtocol::SET_KEY: track->setKey(message.row, message.value, message.type); break;
        case SyncProtocol::DELETE_KEY: track->deleteKey(message.row); break;
        case SyncProtocol::SET_ROW:
            lastRow = message.row;
            if (onSeek) onSeek(message.row);
            break;
        case SyncProtocol::PAUSE:
            if (onPause) onPause(message.pause);
            break;
        case SyncProtocol::SAVE_TRACKS: {
            std::string error;
            if (player.saveTracks(error))
                std::cout << "Sync tracks saved : " << player.getPrefix() << "_*.track" << std::endl;
            else
                std::cout << "Sync tracks not saved : " << error << std::endl;
            break;
        }
    }
    return true;
}

void SyncEditorClient::update(unsigned int wallMs, double row, bool playing) {
    if (!resolved) return;
    now = wallMs;
    if (state == IDLE) {
        if (attempted && wallMs - attemptAt < retryMs) return;
        connect(wallMs);
        if (state == IDLE) return;
    }
    if (state != CONNECTED && wallMs - attemptAt >= answerMs) {
        close("no answer");
        return;
    }
    if (state == CONNECTING && (!finishConnect() || state == CONNECTING)) return;
    if (!flush() || !receive()) return;
    if (state == CONNECTED && playing && row >= 0) {
        long long current = static_cast<long long>(std::floor(row));
        if (current != lastRow && current <= 0x7fffffffLL) {
            lastRow = current;
            SyncProtocol::appendSetRow(outgoing, static_cast<uint32_t>(current));
        }
    }
    flush();
}
