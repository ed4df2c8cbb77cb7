#include "SampleFiles.h"

#include <array>
#include <locale>
#include <sstream>

namespace {

using Point = std::array<double, 3>;

void addTriangle(std::ostringstream& text, const Point& a, const Point& b, const Point& c)
{
    text << "facet normal 0 0 0\nouter loop\n";
    for (const Point& point : {a, b, c})
        text << "vertex " << point[0] << ' ' << point[1] << ' ' << point[2] << '\n';
    text << "endloop\nendfacet\n";
}

/// Corners counter-clockwise seen from outside.
void addSquare(std::ostringstream& text, const Point& a, const Point& b, const Point& c,
               const Point& d)
{
    addTriangle(text, a, b, c);
    addTriangle(text, a, c, d);
}

} // namespace

std::string BoxStl(double x, double y, double z)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << "solid box\n";
    addSquare(text, {0, 0, 0}, {0, y, 0}, {x, y, 0}, {x, 0, 0});
    addSquare(text, {0, 0, z}, {x, 0, z}, {x, y, z}, {0, y, z});
    addSquare(text, {0, 0, 0}, {x, 0, 0}, {x, 0, z}, {0, 0, z});
    addSquare(text, {0, y, 0}, {0, y, z}, {x, y, z}, {x, y, 0});
    addSquare(text, {0, 0, 0}, {0, 0, z}, {0, y, z}, {0, y, 0});
    addSquare(text, {x, 0, 0}, {x, y, 0}, {x, y, z}, {x, 0, z});
    text << "endsolid box\n";
    return text.str();
}
