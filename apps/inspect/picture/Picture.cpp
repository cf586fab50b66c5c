#include "apps/inspect/Picture.hpp"

#include "VemraQt/Picture.hpp"
#include "apps/toolkit/ToolkitMessages.hpp"

#include <array>
#include <stdexcept>

#include <QApplication>
#include <QImage>
#include <QString>

namespace vemra::inspect {
namespace {

constexpr int pictureWidth = 720;

void drawPicture(ui::ViewGraph& graph, const std::string& path) {
  // The platform "offscreen" needs no display, and does not use an existing one.
  std::array<char, 14> program{"vemra-inspect"};
  std::array<char, 10> option{"-platform"};
  std::array<char, 10> platform{"offscreen"};
  std::array<char*, 4> arguments{program.data(), option.data(), platform.data(), nullptr};
  int count = 3;
  toolkit::leaveOutRemarksAboutTheEnvironment();
  const QApplication application(count, arguments.data());
  const QImage image = qt::picture(graph, QSize(pictureWidth, 0));
  if (!image.save(QString::fromStdString(path), "PNG")) {
    throw std::runtime_error("expected a file that can be written");
  }
}

}  // namespace

DrawPicture pictureDrawer() {
  return drawPicture;
}

}  // namespace vemra::inspect
