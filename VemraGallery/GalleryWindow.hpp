#pragma once

#include "VemraGallery/Gallery.hpp"
#include "VemraPlatform/Export.hpp"

#include <memory>
#include <vector>

#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QScrollArea;

namespace vemra::gallery {

class Card;
class PaletteSwitch;

/// A window that shows all specimens of a gallery side by side, with switches for the language, the
/// colours, the text size, the direction and the width, and a field to search for a specimen.
///
/// Switching to high contrast sets the application's palette. The gallery must outlive the window.
/// Main thread only.
class VEMRA_EXPORT GalleryWindow : public QWidget {
 public:
  /// Shows `gallery` in English, with the colours and the text size of the system.
  explicit GalleryWindow(const Gallery& gallery, QWidget* parent = nullptr);
  ~GalleryWindow() override;

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QComboBox* addSwitch(const QString& title, const QString& name, const QStringList& choices);
  void addCards(const Gallery& gallery);
  void restyle();
  void find();
  void arrange();

  const Gallery& gallery_;
  const std::unique_ptr<PaletteSwitch> palette_;
  QWidget* switches_ = nullptr;
  QComboBox *language_ = nullptr, *colours_ = nullptr, *textSize_ = nullptr, *direction_ = nullptr,
            *width_ = nullptr;
  QLineEdit* search_ = nullptr;
  QLabel* found_ = nullptr;
  QScrollArea* area_ = nullptr;
  std::vector<QLabel*> headings_;  ///< of the sections
  std::vector<std::unique_ptr<Card>> cards_;
};

}  // namespace vemra::gallery
