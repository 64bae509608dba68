// The sync editor's messages: arbitrary bytes, whole and cut in half as a network would,
// decoded one message at a time until the rest is incomplete or malformed.
#include "demosys/SyncProtocol.h"

static void decodeAll(const unsigned char* bytes, size_t size) {
    SyncProtocol::Message message;
    std::string problem;
    for (size_t used = 0, length = 0;; used += length) {
        if (SyncProtocol::decode(bytes + used, size - used, message, length, problem) != SyncProtocol::COMPLETE) return;
        if (length == 0 || length > size - used) __builtin_trap();
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    decodeAll(data, size);
    decodeAll(data, size / 2);
    std::string out;
    SyncProtocol::appendGetTrack(out, std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
