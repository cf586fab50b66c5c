// Message: a list needs a range that stores its elements
// The id of a temporary element would be destroyed with the element: the range must store its
// elements.

#include "VemraPlatform/ui/View.hpp"

#include <string>
#include <vector>

namespace vemra::ui {

struct Person {
  std::string ref;
};

struct People {
  std::vector<Person> stored = std::vector<Person>(3);
  std::size_t size() const { return stored.size(); }
  const Person& operator[](std::size_t index) const { return stored[index]; }
};

struct PeopleMadeOnTheSpot {
  std::size_t size() const { return 3; }
  Person operator[](std::size_t) const { return {}; }
};

View kept() {
  return ForEach(People{}, &Person::ref, [](const Person&) { return Group({}); });
}

#ifdef MUST_NOT_COMPILE
View dangling() {
  return ForEach(PeopleMadeOnTheSpot{}, &Person::ref, [](const Person&) { return Group({}); });
}
#endif

}  // namespace vemra::ui
