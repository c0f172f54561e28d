#include <gtest/gtest.h>

#include "platform/qt/key_codes.h"

namespace gridwright {
namespace {

constexpr Qt::KeyboardModifiers kPlain = Qt::NoModifier;

TEST(AnArrow, IsTheSameOnItsOwnKeyAndOnTheKeypadWithItsLockOnOrOff) {
  struct Row {
    int arrow, digit, code;
  };
  for (const Row& row : {Row{Qt::Key_Left, Qt::Key_4, 37}, Row{Qt::Key_Up, Qt::Key_8, 38},
                         Row{Qt::Key_Right, Qt::Key_6, 39}, Row{Qt::Key_Down, Qt::Key_2, 40}}) {
    EXPECT_EQ(keyCodeOf(row.arrow, kPlain, 0), row.code);
    EXPECT_EQ(keyCodeOf(row.arrow, Qt::KeypadModifier, 0), row.code);
    EXPECT_EQ(keyCodeOf(row.digit, Qt::KeypadModifier, 0), row.code);
    EXPECT_EQ(keyCodeOf(row.digit, kPlain, 0), std::nullopt) << "a digit of the main keys";
  }
}

TEST(ALetter, IsItsCapitalWhateverTheShiftState) {
  for (int letter = 'A'; letter <= 'Z'; ++letter) {
    EXPECT_EQ(keyCodeOf(letter, kPlain, 0), letter);
    EXPECT_EQ(keyCodeOf(letter, Qt::ShiftModifier, 0), letter);
  }
}

TEST(ALetter, GoesByTheLayoutBeforeThePlace) {
  constexpr std::uint32_t placeOfQ = 24;  // where a French layout has its A
  EXPECT_EQ(keyCodeOf(Qt::Key_A, kPlain, placeOfQ), 'A');
}

TEST(ALetterOfAnotherScript, GoesByItsPlace) {
  EXPECT_EQ(keyCodeOf(0x0419, kPlain, 24), 'Q');  // Cyrillic short I
  EXPECT_EQ(keyCodeOf(0x0424, kPlain, 38), 'A');  // Cyrillic Ef
  EXPECT_EQ(keyCodeOf(0x041E, kPlain, 44), 'J');  // Cyrillic O
  EXPECT_EQ(keyCodeOf(0x042C, kPlain, 58), 'M');  // Cyrillic soft sign
  EXPECT_EQ(keyCodeOf(0x0396, kPlain, 52), 'Z');  // Greek Zeta
  EXPECT_EQ(keyCodeOf(0x0416, kPlain, 47), std::nullopt) << "Zhe, where the semicolon is";
}

TEST(ASemicolonAtTheZOfAnotherLatinLayout, IsNoLetter) {
  EXPECT_EQ(keyCodeOf(Qt::Key_Semicolon, kPlain, 52), std::nullopt);
}

TEST(Punctuation, GoesByTheCharacterShiftedOrNot) {
  EXPECT_EQ(keyCodeOf(Qt::Key_Comma, kPlain, 58), 188) << "a French comma, at the place of M";
  EXPECT_EQ(keyCodeOf(Qt::Key_Less, Qt::ShiftModifier, 59), 188);
  EXPECT_EQ(keyCodeOf(Qt::Key_Period, kPlain, 60), 190);
  EXPECT_EQ(keyCodeOf(Qt::Key_Greater, Qt::ShiftModifier, 60), 190);
  EXPECT_EQ(keyCodeOf(Qt::Key_Slash, kPlain, 61), 191);
  EXPECT_EQ(keyCodeOf(Qt::Key_Question, Qt::ShiftModifier, 61), 191);
  EXPECT_EQ(keyCodeOf(Qt::Key_Apostrophe, kPlain, 48), 222);
  EXPECT_EQ(keyCodeOf(Qt::Key_QuoteDbl, Qt::ShiftModifier, 48), 222);
}

TEST(EscapeAndSpace, AreKeysToo) {
  EXPECT_EQ(keyCodeOf(Qt::Key_Escape, kPlain, 9), 27);
  EXPECT_EQ(keyCodeOf(Qt::Key_Space, kPlain, 65), 32);
  EXPECT_EQ(keyCodeOf(Qt::Key_Space, Qt::ControlModifier, 65), std::nullopt);
}

TEST(AKeyWithCtrlAltOrMeta, BelongsToTheDesktop) {
  for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
    EXPECT_EQ(keyCodeOf(Qt::Key_J, modifier, 44), std::nullopt);
    EXPECT_EQ(keyCodeOf(Qt::Key_Left, modifier, 113), std::nullopt);
    EXPECT_EQ(keyCodeOf(Qt::Key_Comma, modifier | Qt::ShiftModifier, 59), std::nullopt);
  }
}

TEST(AModifierAlone, IsNoKey) {
  for (const int key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Meta, Qt::Key_CapsLock,
                        Qt::Key_NumLock, Qt::Key_AltGr}) {
    EXPECT_EQ(keyCodeOf(key, kPlain, 50), std::nullopt);
  }
}

}  // namespace
}  // namespace gridwright
