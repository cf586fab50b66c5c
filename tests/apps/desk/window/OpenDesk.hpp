#pragma once

#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/SampleGoals.hpp"
#include "apps/desk/store/StoreEngine.hpp"
#include "apps/desk/window/DeskWindow.hpp"
#include "apps/desk/window/UserSettings.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/RunDesk.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/window/Becomes.hpp"

#include <memory>
#include <optional>
#include <string>

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QStringList>
#include <QThread>
#include <gtest/gtest.h>

namespace vemra::desk {

/// A store, and the window on it.
class OpenDesk : public ::testing::Test {
 protected:
  OpenDesk() { userSettings().clear(); }  // an earlier test has closed a window
  ~OpenDesk() override { close(); }

  void open(std::optional<std::string> goalID = std::nullopt) {
    engine = std::make_shared<StoreEngine>(file, patience);
    window = makeWindow(std::move(goalID));
    window->resize(1200, 1500);  // every row of the samples is in view, and so has its widgets
    window->show();
  }

  virtual std::unique_ptr<DeskWindow> makeWindow(std::optional<std::string> goalID) {
    return std::make_unique<DeskWindow>(engine, std::move(goalID));
  }

  void close() {
    if (window) window->finish();
    window.reset();
    if (engine) engine->finish();
    engine.reset();
  }

  /// Runs the event loop for a while, to check that something does not happen.
  static void pass(int milliseconds) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds) {
      QApplication::processEvents();
      QThread::msleep(5);
    }
  }

  template <class Widget>
  Widget* find(const std::string& name) const {
    for (Widget* widget : window->findChildren<Widget*>(QString::fromStdString(name))) {
      if (widget->isVisible()) return widget;
    }
    return nullptr;
  }

  template <class Widget>
  Widget* wait(const std::string& name) const {
    const bool found = becomes([&] { return find<Widget>(name) != nullptr; });
    EXPECT_TRUE(found) << "not on the screen: " << name << "\n" << texts().join("\n").toStdString();
    return found ? find<Widget>(name) : nullptr;
  }

  void press(const std::string& name) const {
    if (auto* button = wait<QAbstractButton>(name)) {
      EXPECT_TRUE(button->isEnabled()) << name;
      button->click();
    }
  }

  /// The button with that title; on the screen, the first one.
  void pressTitled(const QString& title) const {
    const auto titled = [&]() -> QAbstractButton* {
      for (auto* button : window->findChildren<QAbstractButton*>()) {
        if (button->isVisible() && button->text() == title) return button;
      }
      return nullptr;
    };
    ASSERT_TRUE(becomes([&] { return titled() != nullptr; })) << title.toStdString();
    titled()->click();
  }

  /// All visible texts inside the widget of that name, or anywhere.
  QStringList texts(const std::string& within = "") const {
    QStringList texts;
    const QWidget* root =
        within.empty() ? window.get() : window->findChild<QWidget*>(within.c_str());
    if (root == nullptr) return texts;
    for (const auto* label : root->findChildren<QLabel*>()) {
      if (label->isVisible()) texts.append(label->text());
    }
    for (const auto* button : root->findChildren<QAbstractButton*>()) {
      if (button->isVisible()) texts.append(button->text());
    }
    return texts;
  }

  bool shows(const QString& text, const std::string& within = "") const {
    return texts(within).contains(text);
  }

  TemporaryFolder folder;
  std::string file = folder.file("goals.sqlite");
  Patience patience = usualPatience;  // of the window's engine
  std::shared_ptr<StoreEngine> engine;
  std::unique_ptr<DeskWindow> window;
};

}  // namespace vemra::desk
