#pragma once
// Text form of a 3-vector in the scene printouts: "[x,y,z]".
#include <ostream>

#include "demosys/Vector.h"

std::ostream& operator<<(std::ostream& out, Vector<float, 3> v);
