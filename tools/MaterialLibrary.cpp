#include "tools/MaterialLibrary.h"

#include <sstream>

#include "tools/TextNumbers.h"

namespace qlntools {

void MaterialLibrary::parse(const std::string& text) {
    std::istringstream lines(text);
    std::string line;
    MaterialColors* current = nullptr;
    while (std::getline(lines, line)) {
        size_t hash = line.find('#');
        if (hash != std::string::npos) line.erase(hash);
        std::istringstream words(line);
        std::string keyword;
        if (!(words >> keyword)) continue;
        if (keyword == "newmtl") {
            std::string name;
            std::getline(words >> std::ws, name);
            while (!name.empty() && (name.back() == '\r' || name.back() == ' ' || name.back() == '\t')) name.pop_back();
            current = &materials[name];
            *current = MaterialColors();
            continue;
        }
        float* target = nullptr;
        if (current && keyword == "Ka") target = current->ambient;
        if (current && keyword == "Kd") target = current->diffuse;
        if (current && keyword == "Ke") target = current->emissive;
        if (!target) continue;
        float rgb[3];
        int read = 0;
        std::string number;
        while (read < 3 && words >> number) {
            double value = 0;
            if (!TextNumbers::parseDouble(number, value)) break;
            rgb[read++] = float(value);
        }
        if (read == 1) rgb[1] = rgb[2] = rgb[0];  // a single value means grey
        if (read == 1 || read == 3)
            for (int i = 0; i < 3; ++i) target[i] = rgb[i];
    }
}

}  // namespace qlntools
