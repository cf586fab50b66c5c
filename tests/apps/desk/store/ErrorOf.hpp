#pragma once

#include "apps/desk/store/StoreError.hpp"

#include <string>

namespace vemra::desk {

/// What an act that must fail says; "no error" when it does not.
template <class Act>
std::string errorOf(const Act& act) {
  try {
    act();
  } catch (const StoreError& error) {
    return error.what();
  }
  return "no error";
}

}  // namespace vemra::desk
