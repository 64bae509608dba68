#include "demosys/QLNVectorOutput.h"

std::ostream& operator<<(std::ostream& out, Vector<float, 3> v) {
    return out << "[" << v[0] << "," << v[1] << "," << v[2] << "]";
}
