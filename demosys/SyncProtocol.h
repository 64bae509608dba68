#pragma once
// The sync editor's wire format: after the greetings, commands of one byte followed by
// big-endian fields. Decoding works on whatever bytes have arrived so far, so a message
// cut in two by the network simply waits for its rest.
#include <cstddef>
#include <cstdint>
#include <string>

class SyncProtocol {
public:
    enum Command { SET_KEY = 0, DELETE_KEY = 1, GET_TRACK = 2, SET_ROW = 3, PAUSE = 4, SAVE_TRACKS = 5 };
    enum Result { COMPLETE, INCOMPLETE, MALFORMED };

    struct Message {
        int command = -1;
        uint32_t track = 0;
        uint32_t row = 0;
        float value = 0;
        uint8_t type = 0;
        bool pause = false;
    };

    static const std::string clientGreeting;  // sent by us
    static const std::string editorGreeting;  // expected back

    // Reads one message of the editor from the front of the bytes. COMPLETE sets length
    // to the bytes it used; MALFORMED explains itself in problem.
    static Result decode(const unsigned char* bytes, size_t size, Message& message, size_t& length,
                         std::string& problem);

    static void appendGetTrack(std::string& out, const std::string& name);
    static void appendSetRow(std::string& out, uint32_t row);
};
