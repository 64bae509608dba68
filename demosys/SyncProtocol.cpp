#include "demosys/SyncProtocol.h"

#include <cmath>
#include <cstring>

#include "demosys/SyncTrack.h"

const std::string SyncProtocol::clientGreeting = "hello, synctracker!";
const std::string SyncProtocol::editorGreeting = "hello, demo!";

static uint32_t word(const unsigned char* at) {
    return static_cast<uint32_t>(at[0]) << 24 | static_cast<uint32_t>(at[1]) << 16 |
           static_cast<uint32_t>(at[2]) << 8 | at[3];
}

static void appendWord(std::string& out, uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>((value >> shift) & 0xff);
}

SyncProtocol::Result SyncProtocol::decode(const unsigned char* bytes, size_t size, Message& message, size_t& length,
                                          std::string& problem) {
    if (size == 0) return INCOMPLETE;
    message = Message();
    message.command = bytes[0];
    switch (message.command) {
        case SET_KEY: length = 14; break;
        case DELETE_KEY: length = 9; break;
        case SET_ROW: length = 5; break;
        case PAUSE: length = 2; break;
        case SAVE_TRACKS: length = 1; break;
        default:
            problem = "unknown command " + std::to_string(message.command);
            return MALFORMED;
    }
    if (size < length) return INCOMPLETE;
    const unsigned char* fields = bytes + 1;
    if (message.command == SET_KEY || message.command == DELETE_KEY) {
        message.track = word(fields);
        message.row = word(fields + 4);
    } else if (message.command == SET_ROW) {
        message.row = word(fields);
    } else if (message.command == PAUSE) {
        message.pause = fields[0] != 0;
    }
    if (message.command == SET_KEY) {
        uint32_t bits = word(fields + 8);
        std::memcpy(&message.value, &bits, sizeof bits);
        message.type = fields[12];
        if (message.type >= SyncTrack::KEY_TYPES) {
            problem = "key of unknown kind " + std::to_string(message.type);
            return MALFORMED;
        }
        if (!std::isfinite(message.value)) {
            problem = "key value is not a number";
            return MALFORMED;
        }
    }
    // Track files hold rows as signed ints.
    if (message.row > 0x7fffffffu) {
        problem = "row " + std::to_string(message.row) + " out of range";
        return MALFORMED;
    }
    return COMPLETE;
}

void SyncProtocol::appendGetTrack(std::string& out, const std::string& name) {
    out += static_cast<char>(GET_TRACK);
    appendWord(out, static_cast<uint32_t>(name.size()));
    out += name;
}

void SyncProtocol::appendSetRow(std::string& out, uint32_t row) {
    out += static_cast<char>(SET_ROW);
    appendWord(out, row);
}
