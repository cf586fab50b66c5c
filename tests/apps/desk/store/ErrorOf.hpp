#pragma once

#include "apps/desk/store/StoreError.hpp"

#include <string>

namespace vemra::desk {

/// The error message of a call that must fail; "no error" when it does not.
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
