#include "platform/qt/key_codes.h"

#include <QChar>
#include <array>
#include <string_view>

#include "state/key_codes.h"

namespace gridwright {

namespace {

/// The letters of a US keyboard by X11 key code; Wayland gives the same numbers.
struct LetterRow {
  std::uint32_t first;
  std::string_view letters;
};
constexpr std::array kLetterRows = {LetterRow{24, "QWERTYUIOP"}, LetterRow{38, "ASDFGHJKL"},
                                    LetterRow{52, "ZXCVBNM"}};

std::optional<int> letterAtPlace(std::uint32_t scanCode) {
  for (const LetterRow& row : kLetterRows) {
    const std::uint32_t place = scanCode - row.first;  // wraps to a huge number below the row
    if (place < row.letters.size()) return row.letters[place];
  }
  return std::nullopt;
}

std::optional<int> arrowOf(int key, bool keypad) {
  switch (key) {
    case Qt::Key_Left:
      return 37;
    case Qt::Key_Up:
      return 38;
    case Qt::Key_Right:
      return 39;
    case Qt::Key_Down:
      return 40;
    case Qt::Key_4:
      return keypad ? std::optional(37) : std::nullopt;
    case Qt::Key_8:
      return keypad ? std::optional(38) : std::nullopt;
    case Qt::Key_6:
      return keypad ? std::optional(39) : std::nullopt;
    case Qt::Key_2:
      return keypad ? std::optional(40) : std::nullopt;
    default:
      return std::nullopt;
  }
}

std::optional<int> punctuationOf(int key) {
  switch (key) {
    case Qt::Key_Comma:
    case Qt::Key_Less:
      return 188;
    case Qt::Key_Period:
    case Qt::Key_Greater:
      return 190;
    case Qt::Key_Slash:
    case Qt::Key_Question:
      return 191;
    case Qt::Key_Apostrophe:
    case Qt::Key_QuoteDbl:
      return 222;
    default:
      return std::nullopt;
  }
}

/// The two keys of the slides.
std::optional<int> slideKeyOf(int key) {
  if (key == Qt::Key_Escape) return key::escape;
  return key == Qt::Key_Space ? std::optional(key::space) : std::nullopt;
}

/// A letter that no Latin keyboard writes plainly. A semicolon at Z's place is none: such a layout has
/// its Z elsewhere.
bool isForeignLetter(int key) { return key > 0x7F && key <= 0xFFFF && QChar(key).isLetter(); }

}  // namespace

std::optional<int> keyCodeOf(int key, Qt::KeyboardModifiers modifiers, std::uint32_t scanCode) {
  if ((modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return std::nullopt;
  if (const auto arrow = arrowOf(key, (modifiers & Qt::KeypadModifier) != 0)) return arrow;
  if (key >= Qt::Key_A && key <= Qt::Key_Z) return key;  // Qt numbers them as their capitals
  if (const auto code = punctuationOf(key)) return code;
  if (const auto code = slideKeyOf(key)) return code;
  return isForeignLetter(key) ? letterAtPlace(scanCode) : std::nullopt;
}

}  // namespace gridwright
