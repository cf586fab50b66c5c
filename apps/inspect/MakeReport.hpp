#pragma once

#include "apps/inspect/Options.hpp"
#include "apps/inspect/Report.hpp"

#include <memory>

namespace vemra::inspect {

/// The JSON document, or with `outline` the text for people.
std::unique_ptr<Report> makeReport(const Options& options);

}  // namespace vemra::inspect
