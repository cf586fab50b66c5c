#include "apps/inspect/Program.hpp"

#include "VemraTesting/Viewport.hpp"
#include "apps/documents/DocumentError.hpp"
#include "apps/inspect/Case.hpp"
#include "apps/inspect/Inspection.hpp"
#include "apps/inspect/MakeReport.hpp"
#include "apps/inspect/Options.hpp"

#include <cstddef>
#include <new>
#include <ostream>
#include <stdexcept>
#include <variant>

namespace vemra::inspect {
namespace {

enum ExitCode { done = 0, notAllDone = 1, unusable = 2 };

int inspect(const Options& options, const Case& inspected, std::ostream& output,
            std::ostream& diagnostics, const DrawPicture& drawPicture) {
  ExitCode code = done;
  Inspection inspection(inspected);
  const auto report = makeReport(options);
  std::size_t number = 0;
  for (const Step& step : inspected.steps) {
    const StepResult result = inspection.carryOut(step);
    ++number;
    if (result) code = notAllDone;
    if (!options.viewport) {
      report->step(step, result, inspection);
    } else if (result) {
      diagnostics << options.file << ": step " << number << ": " << *result << '\n';
    }
  }
  if (const StepResult result = inspection.finish()) {
    code = notAllDone;
    diagnostics << options.file << ": after the last step: " << *result << '\n';
  }
  if (options.viewport) {
    output << testing::Viewport(inspection.screen().graph(), *options.viewport).text()
           << std::flush;
  } else {
    output << report->finish(inspection) << std::flush;
  }
  if (!output) {
    diagnostics << "vemra-inspect: standard output cannot be written\n";
    code = notAllDone;
  }
  if (options.png) {
    try {
      drawPicture(inspection.screen().graph(), *options.png);
    } catch (const std::runtime_error& error) {
      diagnostics << *options.png << ": " << error.what() << '\n';
      code = notAllDone;
    }
  }
  return code;
}

}  // namespace

int run(int argumentCount, const char* const* arguments, std::ostream& output,
        std::ostream& diagnostics, const DrawPicture& drawPicture) {
  const auto read =
      readOptions(argumentCount, arguments, drawPicture ? Pictures::drawn : Pictures::notDrawn);
  if (const auto* earlyExit = std::get_if<commandline::EarlyExit>(&read)) {
    return commandline::print(*earlyExit, output, diagnostics);
  }
  const Options& options = std::get<Options>(read);
  try {
    const Case inspected = readCaseFile(options.file, ui::Environment::system());
    if (const auto other = otherVersion(inspected.recorded)) {
      diagnostics << options.file << ": " << *other << '\n';
    }
    return inspect(options, inspected, output, diagnostics, drawPicture);
  } catch (const documents::DocumentError& error) {
    diagnostics << error.what() << '\n';
    return unusable;
  } catch (const std::bad_alloc&) {
    diagnostics << options.file
                << ": expected a document that fits into memory; found a larger one\n";
    return unusable;
  }
}

}  // namespace vemra::inspect
