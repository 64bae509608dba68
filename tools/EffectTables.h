#pragma once
// The parameter and method tables of docs/effects.md, made from the .def files with the
// engine's own definition reader. In the page, each table stands between the lines
// "<!-- tables: CLASS -->" and "<!-- end tables -->"; everything else is left as written.
#include <string>

namespace EffectTables {

// The two tables of one class, as Markdown; the empty string when its .def cannot be read.
std::string tables(const std::string& definitionDir, const std::string& className);

// The page with every marked table made again.
std::string refresh(const std::string& page, const std::string& definitionDir);

}  // namespace EffectTables
