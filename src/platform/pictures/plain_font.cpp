#include "platform/pictures/plain_font.h"

namespace gridwright {

QFont plainFont() {
  constexpr double kPoints = 9;  // as Qt has it where no desktop says otherwise
  QFont font(QStringLiteral("Sans Serif"));
  font.setStyleHint(QFont::AnyStyle, QFont::PreferDefault);
  font.setPointSizeF(kPoints);
  font.setStyle(QFont::StyleNormal);
  font.setWeight(QFont::Normal);
  font.setStretch(QFont::AnyStretch);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setKerning(true);
  font.setLetterSpacing(QFont::PercentageSpacing, 0);
  font.setWordSpacing(0);
  font.setCapitalization(QFont::MixedCase);
  font.setUnderline(false);
  font.setOverline(false);
  font.setStrikeOut(false);
  font.setFixedPitch(false);
  return font;
}

}  // namespace gridwright
