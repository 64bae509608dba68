// Arbitrary bytes written to a real file, read back whole and walked with the readers in an
// order the bytes themselves choose; then put back out and compared.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "fuzz/FuzzFile.h"
#include "qlnutils/File.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::string inputPath = fuzzFile("input.bin", data, size);
    const std::string outputPath = fuzzDir() + "/output.bin";

    File file(inputPath, File::READ);
    if (!file.exists() || file.getFileSize() != size || file.getAsString() != bytes) abort();
    if (file.getUnsigned().size() != size || file.get().size() != size || file.getAsInt().size() != size / 4) abort();
    std::string joined;
    for (const std::string& line : file.getAsLines()) joined += line;
    if (joined.size() > size) abort();

    // Walk past the end on purpose: the readers must stay inside the buffer.
    for (int step = 0; step < 64 && file.getReadPosition() <= size; ++step) {
        switch (static_cast<unsigned char>(file.readChar()) % 5) {
            case 0: file.readInt(); break;
            case 1: file.readFloat(); break;
            case 2: file.readString(); break;
            case 3: file.readString(file.readInt()); break;
            default: file.readString(static_cast<unsigned char>(file.readChar())); break;
        }
        if (file.getReadPosition() > size) abort();
        if (file.getReadPosition() == size && step > 8) break;
    }

    {
        File out(outputPath, File::WRITE);
        out.put(bytes);
        if (!out.write()) abort();
    }
    File back(outputPath, File::READ);
    if (back.getAsString() != bytes) abort();
    return 0;
}
