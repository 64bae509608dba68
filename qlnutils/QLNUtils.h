#pragma once
// Number <-> text conversions; also the one header that brings in the whole utility library.
#include <string>

#include "qlnutils/File.h"
#include "qlnutils/StringTokenizer.h"
#include "qlnutils/StringUtils.h"

class QLNUtils {
public:
    static std::string int2string(int value);
    static std::string uint2string(unsigned int value);
    // Default stream format: six significant digits, 2.0 gives "2".
    static std::string float2string(float value);
    // Read the leading number and ignore the rest; 0 when the text does not start with one.
    static int string2Int(std::string text);
    static float string2Float(std::string text);
};
