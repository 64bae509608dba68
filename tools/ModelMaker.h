#pragma once
// Source models written as Wavefront OBJ text: the logo, the letters Q, L and N
// built from the bitmap font as blocks (one mesh per letter, each in its own
// material), and a five-pointed star prism whose caps are concave polygons.
#include <string>

namespace qlntools {

class ModelMaker {
public:
    static std::string logoObj();
    static std::string logoMtl();
    static std::string starObj();
};

}  // namespace qlntools
