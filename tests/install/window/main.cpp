#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "docs/Languages.inc"  // from docs/embedding.md

#include <iostream>

#include <QAbstractButton>
#include <QApplication>
#include <QMainWindow>

/// The page of a window, and the title of a button on it.
struct Page {
  vemra::qt::ViewWidget* const widget;

  std::string title(const char* identifier) const {
    auto* const button = widget->findChild<QAbstractButton*>(identifier);
    return button ? button->text().toStdString() : "no button";
  }
  bool isDark() const {
    const QImage picture = widget->viewport()->grab().toImage();
    return picture.pixelColor(picture.width() - 1, picture.height() - 1).lightness() < 64;
  }
};

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  vemra::GetGoalSnapshotResponse goal;
  goal.people = {{.personRef = "p1", .displayName = "Ada"}};
  const auto ignore = [](const auto&) {};
  QMainWindow window;
  auto* const widget = new vemra::qt::ViewWidget;
  const Page page{widget};
  window.setCentralWidget(widget);
  widget->setRoot(
      vemra::GoalResultView(vemra::GoalResultSnapshotV1(goal), ignore, ignore, ignore, ignore));
  window.resize(400, 300);
  window.show();

  const char* const start = "vemra.goal.person.p1.outcome.start";
  widget->setOverrides(inGerman());
  std::cout << "German: " << page.title(start) << "\n";
  widget->setOverrides(inHebrew());
  std::cout << "Hebrew: " << page.title(start) << "\n";
  {
#include "docs/French.inc"  // from docs/window.md
  } std::cout
      << "French: " << page.title(start) << "\n";
  {
#include "docs/Contacts.inc"  // from docs/window.md
  } std::cout
      << "Contacts: " << widget->environment().strings->lookup("No friends yet").value_or("")
      << "\n";

  std::cout << "Dark: " << page.isDark();
  window.setPalette(QPalette(QColor(50, 50, 60), QColor(30, 30, 35)));
  QApplication::processEvents();
  std::cout << ", then " << page.isDark() << "\n";
}
