#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/text/TextMask.hpp"
#include "VemraRecording/Call.hpp"

#include <string>
#include <string_view>

namespace vemra::recording {

/// The records with every text in them masked, ids and references too. Dates that the screen can
/// read stay, so that it shows the same day; counts and cases stay.
GetGoalSnapshotResponse masked(const GetGoalSnapshotResponse& result, text::TextMask& mask);
Call masked(const Call& call, text::TextMask& mask);

/// The accessibility identifier with the person's reference in it masked; an identifier that the
/// screen does not have is masked as a whole.
std::string maskedIdentifier(std::string_view identifier, text::TextMask& mask);

}  // namespace vemra::recording
