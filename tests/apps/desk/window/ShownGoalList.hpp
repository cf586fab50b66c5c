#pragma once

#include "apps/desk/window/GoalList.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::desk {

/// A list of goals in a window with the focus, and the ids of the goals that were chosen in it.
class ShownGoalList : public ::testing::Test {
 protected:
  ShownGoalList() {
    QObject::connect(&list, &GoalList::goalChosen,
                     [this](const std::string& goalID) { chosen.push_back(goalID); });
    list.resize(230, 500);
    list.show();
    qttest::activate(list);
  }

  GoalList list;
  std::vector<std::string> chosen;
};

}  // namespace vemra::desk
