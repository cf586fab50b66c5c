#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraQt/Theme.hpp"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

/// \file
/// The controls of the peers that are made of widgets, in the library's fonts, colours and sizes.

namespace vemra::bench {

/// Fonts and colours of the page, the same for every candidate.
const qt::Theme& theme();

/// A button as small as its title allows.
class SmallButton : public QPushButton {
 public:
  SmallButton(const QString& title, const QString& identifier, QWidget* parent);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }
};

/// A person's name: a button without a frame, written like a link.
class NameButton final : public QPushButton {
 public:
  NameButton(const QString& name, QWidget* parent);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A text in one of the page's fonts and colours.
QLabel* makeText(const QString& text, ui::Font font, ui::ForegroundStyle style, QWidget* parent);

/// The recorded outcome of a person.
class OutcomeSummary final : public QWidget {
 public:
  OutcomeSummary(const GoalOutcomeDTO& outcome, const QString& identifierPrefix, QWidget* parent);
  QPushButton& correct() const { return *correct_; }

 private:
  QPushButton* correct_;
};

/// The choice, the note, Save and Cancel.
class OutcomeEditor final : public QWidget {
  Q_OBJECT

 public:
  OutcomeEditor(const QString& identifierPrefix, QWidget* parent);
  QLineEdit& note() const { return *note_; }
  QPushButton& save() const { return *save_; }
  QPushButton& cancel() const { return *cancel_; }

 private:
  void check();

  QComboBox* picker_;
  QLineEdit* note_;
  QPushButton* save_;
  QPushButton* cancel_;
};

}  // namespace vemra::bench
