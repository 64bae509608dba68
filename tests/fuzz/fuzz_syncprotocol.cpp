// The sync editor's messages: arbitrary bytes, fed in two pieces as a network would cut
// them, are decoded one message at a time until the rest is incomplete or malformed.
#include <cstddef>
#include <cstdint>
#include <string>

#include "demosys/SyncProtocol.h"

static void decodeAll(const unsigned char* bytes, size_t size) {
    size_t used = 0;
    for (;;) {
        SyncProtocol::Message message;
        size_t length = 0;
        std::string problem;
        if (SyncProtocol::decode(bytes + used, size - used, message, length, problem) != SyncProtocol::COMPLETE) return;
        if (length == 0 || length > size - used) __builtin_trap();
        used += length;
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    decodeAll(data, size);
    decodeAll(data, size / 2);
    std::string out;
    SyncProtocol::appendGetTrack(out, std::string(reinterpret_cast<const char*>(data), size));
    SyncProtocol::appendSetRow(out, size);
    return 0;
}
