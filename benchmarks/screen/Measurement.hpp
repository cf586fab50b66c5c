#pragma once

#include "benchmarks/data/SampleResult.hpp"
#include "benchmarks/frames/FrameClock.hpp"
#include "benchmarks/screen/Candidate.hpp"

#include <set>
#include <string>

#include <QImage>

namespace vemra::bench {

/// The measures of one process. Every figure is printed as soon as it is known, one on each line:
/// the measure, a tab and the number, in milliseconds, or in MiB for memory.
///
/// A measure has up to two figures: ".first", the first time that it happens in the process, and
/// ".hot", the median of the times after that.
class Measurement {
 public:
  Measurement(FrameClock& clock, const CandidateKind& kind, SampleSize size);

  /// Every time from the first frame to the last. With a folder for pictures, one after every step.
  void times(const std::string& pictures);
  /// The same, and compares the screen at the moment when the clock stops with the window's final
  /// content. An incomplete frame is named on standard error, once for each measure; throws at the
  /// end when one was the library's own. With a folder, its picture is kept.
  void check(const std::string& pictures);
  /// One measure of those a thousand times, for a profiler; throws when there is none of that name.
  void repeatOne(const std::string& measure);
  /// The first frames alone.
  void firstFrames();
  /// Resident memory with the screen, over that with an empty window, in MiB.
  void memory();
  /// Shows the screen and stays until standard input ends.
  void serve();
  /// Ten warm first frames, for a profiler.
  void repeatFirstFrames();

 private:
  static void print(const std::string& measure, double value);
  double frameOf(const std::string& what, const std::function<void()>& action);
  void checkWhole(const std::string& what, const QImage& frame);
  /// The first time and the median of the others. `undo` is done in between and not counted.
  void repeated(const std::string& measure, const std::function<void()>& action,
                const std::function<void()>& undo);
  void coldFirstFrame();
  /// A profiler uses this name to count in warm first frames only.
  [[gnu::noinline]] double warmFrame();
  void warmFirstFrames(std::size_t times);
  void measureEvents();
  void checkPixels(const std::string& what);
  void keepPicture(const std::string& name);
  void sendKey();

  FrameClock& clock_;
  const CandidateKind& kind_;
  GetGoalSnapshotResponse result_;
  GoalResultSnapshotV1 snapshot_;
  std::unique_ptr<Candidate> candidate_;
  std::string pictures_;
  bool checks_ = false;
  std::set<std::string> unwhole_;  ///< the measures with an incomplete frame
  std::string only_;               ///< the one measure that is repeated; empty: all are measured
};

}  // namespace vemra::bench
