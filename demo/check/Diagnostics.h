#pragma once
// The checker's findings, printed gcc style ("path:line: error: message") so that editors
// and CI jump to them: every error first, then every warning, each in file and line order.
#include <ostream>
#include <string>
#include <vector>

class Diagnostics {
public:
    void error(const std::string& file, int line, const std::string& message);
    void warning(const std::string& file, int line, const std::string& message);

    int errors() const { return errorCount; }
    int warnings() const { return warningCount; }

    // A message of several lines keeps its lines; only the first carries the location.
    void print(std::ostream& out) const;

private:
    struct Finding {
        std::string file;
        int line;
        bool isError;
        std::string message;
        size_t order;
    };
    void add(const std::string& file, int line, bool isError, const std::string& message);

    std::vector<Finding> findings;
    int errorCount = 0;
    int warningCount = 0;
};
