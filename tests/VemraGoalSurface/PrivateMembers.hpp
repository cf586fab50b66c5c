#pragma once

#include "VemraGoalSurface/GoalOutcomeRecordingControl.hpp"
#include "VemraGoalSurface/GoalResultView.hpp"

#include <string>

/// \file
/// The sections of the screen are private and are reached only through `body`, which stops the
/// process first off the main thread. To test the check in each of them, the tests take their
/// addresses in an explicit instantiation, where access is not checked.
///
///     (view.*address(PersonRowMember{}))(person)
///
/// Include it in one source file of a program only, because an explicit instantiation may appear
/// only once.

namespace vemra::screentest {

using OutcomeState = ui::LocalState<GoalOutcomeRecordingControl::State>;

/// Makes `address(Name{})` return the address of the member; `Name` declares the function.
template <class Name, typename Name::Member member>
struct Open {
  friend typename Name::Member address(Name) { return member; }
};

struct PeopleSectionMember {
  using Member = ui::View (GoalResultView::*)() const;
  friend Member address(PeopleSectionMember);
};
struct PersonRowMember {
  using Member = ui::Children (GoalResultView::*)(const GoalPersonCandidateDTO&) const;
  friend Member address(PersonRowMember);
};
struct PathSectionMember {
  using Member = ui::View (GoalResultView::*)() const;
  friend Member address(PathSectionMember);
};
struct CoverageFooterMember {
  using Member = ui::View (GoalResultView::*)(const ui::Environment&) const;
  friend Member address(CoverageFooterMember);
};
struct CoverageTextMember {
  using Member = std::string (GoalResultView::*)(const ui::Environment&) const;
  friend Member address(CoverageTextMember);
};
struct RecordedSummaryMember {
  using Member = ui::Children (GoalOutcomeRecordingControl::*)(const GoalOutcomeDTO&,
                                                               const OutcomeState&) const;
  friend Member address(RecordedSummaryMember);
};
struct EditorMember {
  using Member = ui::Children (GoalOutcomeRecordingControl::*)(const OutcomeState&) const;
  friend Member address(EditorMember);
};
struct SaveMember {
  using Member = void (GoalOutcomeRecordingControl::*)(const OutcomeState&) const;
  friend Member address(SaveMember);
};

template struct Open<PeopleSectionMember, &GoalResultView::peopleSection>;
template struct Open<PersonRowMember, &GoalResultView::personRow>;
template struct Open<PathSectionMember, &GoalResultView::pathSection>;
template struct Open<CoverageFooterMember, &GoalResultView::coverageFooter>;
template struct Open<CoverageTextMember, &GoalResultView::coverageText>;
template struct Open<RecordedSummaryMember, &GoalOutcomeRecordingControl::recordedSummary>;
template struct Open<EditorMember, &GoalOutcomeRecordingControl::editor>;
template struct Open<SaveMember, &GoalOutcomeRecordingControl::save>;

}  // namespace vemra::screentest
