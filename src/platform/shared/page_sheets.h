// A page that is spread over sheets, to be put together on a wall.
//
// Sheets overlap by 10 millimetres: each shows, in a rim of half of that round what is to be kept of it, what
// its neighbours keep there. Marks in the rim say where to cut; what is kept makes the page, edge to edge. So
// the page is as many times as large as the kept part as it has sheets that way, and nothing of it is lost
// where a printer moves a sheet by a millimetre.
#pragma once

#include <QRectF>
#include <QSizeF>
#include <functional>

#include "canvas/bitmap_view.h"
#include "platform/shared/page_paint.h"
#include "state/page_setup.h"

namespace gridwright {

/// Where a page's parts lie on its sheets, in any unit.
class Sheets {
 public:
  /// \param printable what a sheet has between its margins.
  /// \param overlap wished; it takes no more than a quarter of a side.
  Sheets(const QSizeF& printable, const PageTiles& tiles, double overlap);

  [[nodiscard]] int count() const { return tiles_.count(); }
  [[nodiscard]] QRectF page() const;  ///< From 0, 0.
  [[nodiscard]] QRectF kept() const;  ///< On each sheet, measured from its printable area.
  [[nodiscard]] double rim() const { return rim_; }
  /// The page's own place on a sheet, most of it beside it. \param sheet from 0, row by row.
  [[nodiscard]] QRectF pageOn(int sheet) const;

 private:
  QSizeF printable_;
  PageTiles tiles_;
  double rim_;
};

/// Overlap of two neighbours, in millimetres.
inline constexpr double kSheetOverlap = 10;

/// Paints a page on all of its sheets. Spread over several it is always drawn in rectangles, where it can be:
/// on a wall each pixel is as large as a thumb.
/// \param nextSheet begins each sheet but the first, which has begun.
/// \returns false when a sheet could not begin.
bool paintSheets(QPainter& painter, const BitmapView& picture, const PageLook& look, PictureInk ink,
                 const std::function<bool()>& nextSheet);

}  // namespace gridwright
