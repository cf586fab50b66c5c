#include "VemraGoalSurface/GoalResultView.hpp"

#include "VemraGoalSurface/GoalOutcomeRecordingControl.hpp"
#include "VemraGoalSurface/presentation/GoalGapPresentation.hpp"
#include "VemraGoalSurface/presentation/GoalWhyPresentation.hpp"
#include "VemraGoalSurface/presentation/PersonName.hpp"
#include "VemraPlatform/date/AbbreviatedDate.hpp"
#include "VemraPlatform/date/InternetDateTime.hpp"
#include "VemraPlatform/task/MainActor.hpp"

namespace vemra {

using namespace ui;
using task::MainActor;

GoalResultView::GoalResultView(const GoalResultSnapshotV1& snapshot, OnOpenPerson onOpenPerson,
                               OnShowEvidence onShowEvidence, OnFocusPath onFocusPathInStarfold,
                               OnRecordOutcome onRecordOutcome)
    : snapshot_(snapshot),
      callbacks_(std::make_shared<Callbacks>(
          Callbacks{std::move(onOpenPerson), std::move(onShowEvidence),
                    std::move(onFocusPathInStarfold), std::move(onRecordOutcome)})) {}

View GoalResultView::body(const Environment& environment) const {
  MainActor::assertIsolated("GoalResultView.body");
  return ScrollView({
      VStack(HorizontalAlignment::leading, 20,
             {
                 Text(verbatim(snapshot_.goal().title))
                     .font(Font::title2)
                     .fontWeight(FontWeight::semibold),
                 peopleSection(),
                 pathSection(),
                 coverageFooter(environment),
             })
          .padding(24),
  });
}

View GoalResultView::peopleSection() const {
  MainActor::assertIsolated("GoalResultView.peopleSection");
  return VStack(HorizontalAlignment::leading, 10,
                {
                    Text("People worth considering").font(Font::headline),

                    If(!snapshot_.people().empty(),
                       [&] {
                         return ForEach(
                             snapshot_.people(), &GoalPersonCandidateDTO::personRef,
                             [view = *this](const GoalPersonCandidateDTO& person) {
                               return VStack(HorizontalAlignment::leading, 4,
                                             view.personRow(person))
                                   .padding(Edges::vertical, 4);
                             },
                             IdentifiersInRows::containRowID);
                       })
                        .otherwise([&] {
                          return Text(verbatim(GoalGapPresentation::text(*snapshot_.peopleGap())))
                              .foregroundStyle(ForegroundStyle::secondary);
                        }),
                });
}

Children GoalResultView::personRow(const GoalPersonCandidateDTO& person) const {
  MainActor::assertIsolated("GoalResultView.personRow");
  const std::string identifierPrefix = "vemra.goal.person." + person.personRef;
  return {
      Button(verbatim(shownName(person)),
             [view = *this, &person] {
               MainActor::assertIsolated("GoalResultView.openPerson");
               if (const auto& open = view.callbacks_->onOpenPerson) open(person.personRef);
             })
          .buttonStyle(ButtonStyle::plain)
          .font(Font::body.weight(FontWeight::medium)),

      Text(verbatim(GoalWhyPresentation::text(person.why)))
          .font(Font::subheadline)
          .foregroundStyle(ForegroundStyle::secondary),

      IfPresent(person.topEvidenceID(),
                [&](const std::string& evidenceID) {
                  return Button("Show source",
                                [view = *this, evidenceID] {
                                  MainActor::assertIsolated("GoalResultView.showSource");
                                  if (const auto& show = view.callbacks_->onShowEvidence) {
                                    show(evidenceID);
                                  }
                                })
                      .font(Font::caption)
                      .accessibilityIdentifier(identifierPrefix + ".show-source");
                }),

      GoalOutcomeRecordingControl{
          .subjectKind = GoalOutcomeSubjectKind::person,
          .subjectRef = person.personRef,
          .effectiveOutcome =
              snapshot_.effectiveOutcome(GoalOutcomeSubjectKind::person, person.personRef),
          .identifierPrefix = identifierPrefix,
          .onRecord = onRecordOutcome(),
      },
  };
}

std::shared_ptr<const GoalResultView::OnRecordOutcome> GoalResultView::onRecordOutcome() const {
  return {callbacks_, &callbacks_->onRecordOutcome};
}

View GoalResultView::pathSection() const {
  MainActor::assertIsolated("GoalResultView.pathSection");
  const auto pathRow = [&]() -> View {
    const GoalPathCandidateDTO& path = snapshot_.paths().front();
    std::optional<std::string> subjectRef;
    if (!path.personRefs.empty()) subjectRef = path.personRefs.back();
    return VStack(HorizontalAlignment::leading, 4,
                  {
                      Text(verbatim(GoalWhyPresentation::text(path.why))).font(Font::subheadline),

                      Button("See in Starfold",
                             [view = *this, &path] {
                               MainActor::assertIsolated("GoalResultView.seeInStarfold");
                               if (const auto& focus = view.callbacks_->onFocusPathInStarfold) {
                                 focus(path);
                               }
                             })
                          .font(Font::caption)
                          .accessibilityIdentifier("vemra.goal.path.see-in-starfold"),

                      GoalOutcomeRecordingControl{
                          .subjectKind = GoalOutcomeSubjectKind::path,
                          .subjectRef = subjectRef,
                          .effectiveOutcome =
                              snapshot_.effectiveOutcome(GoalOutcomeSubjectKind::path, subjectRef),
                          .identifierPrefix = "vemra.goal.path",
                          .onRecord = onRecordOutcome(),
                      },
                  });
  };
  return VStack(HorizontalAlignment::leading, 10,
                {
                    Text("Supported path").font(Font::headline),

                    If(snapshot_.hasSupportedPath(), pathRow).otherwise([&] {
                      return Text(verbatim(GoalGapPresentation::text(*snapshot_.pathGap())))
                          .foregroundStyle(ForegroundStyle::secondary);
                    }),
                });
}

View GoalResultView::coverageFooter(const Environment& environment) const {
  MainActor::assertIsolated("GoalResultView.coverageFooter");
  return Group({
                   If(snapshot_.coverage().evidenceCount < 1,
                      [] { return Text("No source evidence yet."); })
                       .otherwise([&] { return Text(verbatim(coverageText(environment))); }),
               })
      .font(Font::caption)
      .foregroundStyle(ForegroundStyle::secondary);
}

std::string GoalResultView::coverageText(const Environment& environment) const {
  MainActor::assertIsolated("GoalResultView.coverageText");
  const GoalCoverageDTO& coverage = snapshot_.coverage();
  std::string text =
      "Based on " + std::to_string(coverage.evidenceCount) + " piece(s) of evidence from ";
  if (coverage.sources.empty()) text += "your memory";
  for (const std::string& source : coverage.sources) {
    if (&source != coverage.sources.begin()) text += ", ";
    text += source;
  }
  if (coverage.latestEvidenceAt) {
    if (auto latest = date::parseInternetDateTime(*coverage.latestEvidenceAt)) {
      text +=
          ", through " + date::abbreviatedDate(*latest, environment.locale, environment.timeZone);
    }
  }
  return text + '.';
}

}  // namespace vemra
