// Message: the id of a row is a text, a whole number, an enumerator, or a value with a function

#include "VemraPlatform/base/SharedArray.hpp"
#include "VemraPlatform/ui/View.hpp"

namespace vemra::ui {

struct Point {
  double x = 0;
  int number = 0;
};

View rows(const SharedArray<Point>& points) {
  const auto row = [](const Point&) { return View(); };
#ifdef MUST_NOT_COMPILE
  return ForEach(points, &Point::x, row);
#endif
  return ForEach(points, &Point::number, row);
}

}  // namespace vemra::ui
