#pragma once

#include <string>
#include <vector>

namespace sample {

int countUpTo(const std::vector<int>& numbers, int largest);
std::string named(const std::string& name, bool polite);
bool isBefore(int left, int right);
int signOf(int number);

}  // namespace sample
