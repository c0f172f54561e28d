// Pages by way of Qt, for both tenants: their paper, the picture on it, and what stands beside that.
#pragma once

#include <QImage>
#include <optional>

#include "canvas/bitmap_view.h"
#include "printing/patches.h"
#include "state/page_setup.h"

class QPageLayout;
class QPagedPaintDevice;
class QPageSize;
class QPainter;
class QRectF;

namespace gridwright {

/// The paper as Qt knows it, and the other way round.
QPageSize qtPaper(const PaperSize& size);
PaperSize paperOf(const QPageSize& size);
Margins marginsOf(const QPageLayout& layout);

/// A setup with what a dialog has changed of a page's layout, and no more: the rest is as usual still.
PageSetup withChanges(PageSetup setup, const QPageLayout& before, const QPageLayout& after);

/// Lays the device's page as a person has set it; to be called before its page begins. What is not set is as
/// in `usual`, and the page turned to the picture's shape, or so that it becomes largest on several sheets.
/// Of each side no margin takes more than a quarter.
void layPage(QPagedPaintDevice& device, const QPageLayout& usual, const BitmapView& picture,
             const PageSetup& setup);

/// How a picture is put on a page.
enum class PictureInk {
  pixels,      ///< As they stand, without loss: for printers, which draw them fastest.
  rectangles,  ///< Of one colour each, where `mostPatches` of its cells are enough; else the same as pixels.
};

/// A page to be painted once or several times: its picture is made ready once.
class PagePaint {
 public:
  /// \param picture and `look` stay as long as this does.
  PagePaint(const BitmapView& picture, const PageLook& look, PictureInk ink);

  /// Paints the picture fitted to the paper, aspect kept, pixel for pixel sharp; with a head above it where
  /// there is a title or a line for a name, and words beside its ends, where the fewest lines are under them.
  /// Words need an application object, for its fonts. What the painter clips away may be left out.
  /// \param enlarged how many times words are as large as on a single sheet.
  void paint(QPainter& painter, const QRectF& paper, double enlarged) const;

 private:
  const BitmapView& picture_;
  const PageLook& look_;
  std::optional<ColourLayers> layers_;
  QImage image_;  // where there are no layers
};

}  // namespace gridwright
