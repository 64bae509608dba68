// democheck: reads a demoscript and everything it names the way demo would, without a
// display, an OpenGL context or a sound device, and lists every mistake it finds.
#include <fcntl.h>
#include <unistd.h>

#include <iostream>
#include <sstream>
#include <string>

#include "demo/DemoEffects.h"
#include "demo/check/Diagnostics.h"
#include "demo/check/ResourceCheck.h"
#include "demo/check/ScriptReading.h"
#include "demo/check/TimelineCheck.h"
#include "demosys/Demo.h"

namespace {

const char* const usage =
    "usage: democheck [SCRIPT] [--werror]\n"
    "  SCRIPT    a demoscript: a name inside resources/scripts/ (default demoscript.txt),\n"
    "            or a path when it holds a '/'\n"
    "  --werror  warnings fail the check too\n"
    "Prints every error, then every warning, as path:line: error: message.\n"
    "Exit status: 0 clean, 1 errors (or warnings with --werror), 2 bad usage.\n";

// The engine's readers log as they go; the checker shows only its findings.
class Quiet {
public:
    Quiet() : out(std::cout.rdbuf(nullptr)), err(std::cerr.rdbuf(nullptr)), fd(dup(2)) {
        int null = open("/dev/null", O_WRONLY);
        if (null >= 0) {
            dup2(null, 2);
            close(null);
        }
    }
    ~Quiet() {
        std::cout.rdbuf(out);
        std::cerr.rdbuf(err);
        if (fd >= 0) {
            dup2(fd, 2);
            close(fd);
        }
    }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

private:
    std::streambuf* out;
    std::streambuf* err;
    int fd;
};

}  // namespace

int main(int argc, char** argv) {
    std::string script;
    bool werror = false;
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        if (arg == "--help" || arg == "-h") {
            std::cout << usage;
            return 0;
        }
        if (arg == "--werror") {
            werror = true;
        } else if (arg.empty() || arg[0] == '-' || !script.empty()) {
            std::cerr << "democheck: unexpected argument '" << arg << "'\n" << usage;
            return 2;
        } else {
            script = arg;
        }
    }
    if (script.empty()) script = "demoscript.txt";
    std::string path = script.find('/') == std::string::npos ? "resources/scripts/" + script : script;

    Diagnostics diagnostics;
    {
        Quiet quiet;
        char name[] = "democheck";
        char* demoArgs[] = {name, nullptr};
        Demo demo(1, demoArgs);
        registerDemoEffects(demo);
        {
            ScriptReading reading(path, diagnostics);
            if (reading.read()) {
                ResourceCheck(reading, diagnostics).run();
                TimelineCheck(reading, diagnostics).run();
            }
        }
        demo.dispose();
    }
    diagnostics.print(std::cout);
    std::cout << path << ": " << diagnostics.errors() << (diagnostics.errors() == 1 ? " error, " : " errors, ")
              << diagnostics.warnings() << (diagnostics.warnings() == 1 ? " warning" : " warnings") << std::endl;
    if (diagnostics.errors() > 0 || (werror && diagnostics.warnings() > 0)) return 1;
    return 0;
}
