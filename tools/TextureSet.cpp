#include "tools/TextureSet.h"

#include "tools/LogoPainter.h"
#include "tools/PatternPainter.h"
#include "tools/SpacePainter.h"

namespace qlntools {

const std::vector<TextureSet::Entry>& TextureSet::entries() {
    static const std::vector<Entry> list = {
        {"logo.png", 4, [] { return LogoPainter::logo(); }},
        {"title1.png", 3, [] { return LogoPainter::title(0); }},
        {"title2.png", 3, [] { return LogoPainter::title(1); }},
        {"title3.png", 3, [] { return LogoPainter::title(2); }},
        {"tunnel_outer.png", 3, [] { return PatternPainter::tunnelOuter(); }},
        {"tunnel_inner.png", 4, [] { return PatternPainter::tunnelInner(); }},
        {"plasma.png", 3, [] { return PatternPainter::plasma(); }},
        {"cubes.png", 3, [] { return PatternPainter::cubes(); }},
        {"background.png", 3, [] { return SpacePainter::background(); }},
    };
    return list;
}

}  // namespace qlntools
