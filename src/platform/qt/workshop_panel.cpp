// What the workshop consists of, and how it follows the model; what a person does in it stands in
// workshop_input.cpp.
#include "platform/qt/workshop_panel.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>
#include <utility>

#include "pictures/regions.h"
#include "platform/qt/screen_colour.h"
#include "session/input.h"
#include "session/workshop.h"

namespace gridwright {

namespace {

constexpr int kMargin = 4;

}  // namespace

void WorkshopPanel::undoStep(Program& program) {
  onSheet(program, [](Sheet& sheet) { sheet.undo(); });
}

void WorkshopPanel::redoStep(Program& program) {
  onSheet(program, [](Sheet& sheet) { sheet.redo(); });
}

WorkshopPanel::WorkshopPanel(QWidget* parent, InputQueue& inputs, InkWork& ink)
    : PanelFrame(parent),
      inputs_(inputs),
      pages_(new QTabBar(this)),
      stack_(new QStackedWidget(this)),
      words_(new WordsPage(ink, this)),
      stamps_(new StampPage(ink, this)),
      tools_(new WorkshopTools(words_, stamps_, this)),
      view_(new SheetView(this)),
      prepare_(new PreparePage(this)) {
  setObjectName("Workshop");
  setAccessibleName("Workshop");
  pages_->addTab("Sheet");
  pages_->addTab("Prepare picture");
  pages_->setDrawBase(false);
  pages_->setExpanding(false);
  pages_->setAccessibleName("Page");
  pages_->hide();
  stack_->addWidget(buildSheetPage());
  stack_->addWidget(prepare_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kMargin);
  column->addWidget(pages_);
  column->addWidget(stack_, 1);
  counting_.setSingleShot(true);
  counting_.setInterval(kBetweenCounts);
  watching_.setInterval(kBetweenLooks);
  listenToSheet();
  listenToTools();
  listenToPreparePage();
  // Ctrl+Z in a number box is meant for the sheet.
  for (auto* box : findChildren<QAbstractSpinBox*>()) {
    if (prepare_->isAncestorOf(box)) continue;
    auto* line = box->findChild<QLineEdit*>();
    line->setAcceptDrops(false);
    line->installEventFilter(this);
    box->installEventFilter(this);
  }
}

QWidget* WorkshopPanel::buildSheetPage() {
  auto* page = new QWidget(stack_);
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kMargin);
  auto* row = new QHBoxLayout;
  row->addWidget(buildTools());
  row->addWidget(view_, 1);
  column->addLayout(buildSteps());
  column->addLayout(row, 1);
  column->addLayout(buildTelling());
  column->addLayout(buildFoot());
  return page;
}

/// The column may scroll, so that a small window shows it too; its bar has room beside it.
QWidget* WorkshopPanel::buildTools() {
  auto* area = new QScrollArea(stack_);
  area->setWidget(tools_);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFixedWidth(tools_->sizeHint().width() + area->verticalScrollBar()->sizeHint().width() + kMargin);
  return area;
}

QPushButton* WorkshopPanel::button(const QString& text, const QString& tip, InputQueue::Report report) {
  auto* made = new QPushButton(text, stack_);
  made->setToolTip(tip);
  made->setAutoDefault(false);
  made->setMinimumWidth(made->fontMetrics().horizontalAdvance(text) + 6 * kMargin);
  made->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  connect(made, &QPushButton::clicked, this,
          [this, report = std::move(report)] { inputs_.byPerson(report); });
  return made;
}

QHBoxLayout* WorkshopPanel::buildSteps() {
  auto* row = new QHBoxLayout;
  row->setSpacing(kMargin);
  undo_ = button("Un&do", "Ctrl+Z", undoStep);
  redo_ = button("&Redo", "Ctrl+Shift+Z or Ctrl+Y", redoStep);
  row->addWidget(
      button("Pi&cture…", "a picture from a file, to be made ready and placed", choosePictureForSheet));
  row->addWidget(
      button("&New sheet", "white paper as large as the Canvas; Undo brings this one back", newsheet));
  row->addWidget(undo_);
  row->addWidget(redo_);
  row->addWidget(button("&Edit in another program",
                        "whenever the picture is saved there, it comes back as one step", editelsewhere));
  row->addStretch(1);
  return row;
}

/// What would come of the sheet, and what the last step has to say: long words end in dots, so that the sheet
/// keeps its room.
QHBoxLayout* WorkshopPanel::buildTelling() {
  auto* row = new QHBoxLayout;
  row->setSpacing(3 * kMargin);
  line_ = new ElidedLabel(stack_);
  line_->setObjectName("sheetline");
  line_->setAccessibleDescription("what would come of the sheet");
  note_ = new ElidedLabel(stack_);
  note_->setObjectName("sheetnote");
  note_->setAccessibleDescription("what the last step has to say");
  note_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  regions_ = new QCheckBox("Show re&gions", stack_);
  regions_->setToolTip("each region of cells in a colour of its own, areas too small for a cell in red");
  row->addWidget(line_);
  row->addWidget(note_, 1);
  row->addWidget(regions_);
  return row;
}

QHBoxLayout* WorkshopPanel::buildFoot() {
  auto* row = new QHBoxLayout;
  row->setSpacing(kMargin);
  status_ = new ElidedLabel(stack_);
  status_->setObjectName("sheetstatus");
  status_->setAccessibleDescription("place, size and colour");
  status_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  row->addWidget(status_, 1);
  row->addWidget(button("&Use", "Ctrl+Enter: the sheet becomes the drawing", input::preparedAccepted));
  row->addWidget(button("C&ancel", "Escape: the drawing stays as it was, and so does the sheet",
                        input::preparationCancelled));
  return row;
}

QWidget* WorkshopPanel::first() const {
  return stack_->currentWidget() == prepare_ ? prepare_->first() : view_;
}

bool WorkshopPanel::isBehind(const Program& program) const {
  const Workshop& w = program.workshop;
  return w.revision != shown_ || program.prepare.revision != prepareShown_ ||
         (w.open && w.sheet->revision() != sheetShown_);
}

void WorkshopPanel::mirror(Program& program) {
  const Workshop& w = program.workshop;
  prepareShown_ = program.prepare.revision;
  prepare_->mirror(program.prepare);
  mirroring_ = true;
  const bool isPreparing = program.prepare.open;
  if (pages_->isHidden() == isPreparing) pages_->setVisible(isPreparing);
  const int page = isPreparing && w.page == WorkshopPage::prepare ? 1 : 0;
  pages_->setCurrentIndex(page);
  if (stack_->currentIndex() != page) {
    const bool hasKeyboard = isAncestorOf(window()->focusWidget());
    stack_->setCurrentIndex(page);
    if (hasKeyboard && window()->focusWidget() != pages_) first()->setFocus(Qt::OtherFocusReason);
  }
  mirroring_ = false;
  if (w.open) mirrorSheet(program);
  shown_ = w.revision;
  const bool isAway = w.open && w.elsewhere;
  if (isAway && !watching_.isActive()) watching_.start();
  if (!isAway) watching_.stop();
}

/// What a stroke under way makes of the count is told now and then: counting takes longer than painting.
void WorkshopPanel::mirrorSheet(Program& program) {
  Workshop& w = program.workshop;
  if (w.countedAt != w.sheet->revision()) {
    if (!w.sheet->isPressed() && !view_->isHeld()) {
      counting_.stop();
      countSheet(program);
    } else if (!counting_.isActive()) {
      counting_.start();
    }
  }
  sheetShown_ = w.sheet->revision();
  view_->mirror(w);
  mirrorRegions(w);
  tools_->mirror(w, program.markColours);
  undo_->setEnabled(w.sheet->canUndo());
  redo_->setEnabled(w.sheet->canRedo());
  line_->tell(qString(w.line), {});
  note_->tell(qString(sheetNote(program)), {});
  showStatus();
}

void WorkshopPanel::mirrorRegions(const Workshop& workshop) {
  const bool isShown = regions_->isChecked();
  if (!isShown) {
    regionsOf_ = 0;
    return view_->layOver({});
  }
  const QSize size = view_->picture().size();
  if (regionsOf_ == workshop.countedAt && !view_->layer().isNull()) return;
  const auto pixels = static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height());
  if (workshop.map.regions.size() != pixels) return;  // of a sheet of another size
  regionsOf_ = workshop.countedAt;
  view_->layOver(layerOf(inColours(workshop.map, {size.width(), size.height()})));
}

/// "312, 140 · 10 pixels · navy"; a placed picture says instead what moves it.
void WorkshopPanel::showStatus() {
  const ToolSettings& tool = tools_->settings();
  QStringList words;
  if (const auto at = view_->pointer()) words += QString("%1, %2").arg(at->x).arg(at->y);
  if (view_->frame()) {
    words += "drag the picture or a corner of it; arrows, + and -; Enter or a tool leaves it";
  } else {
    const QString pixels = tool.size == 1 ? "%1 pixel" : "%1 pixels";
    if (!tools_->putsDown()) words += tool.oneCell ? QString("one cell") : pixels.arg(tool.size);
    words += inkName(tool.colour);
  }
  if (view_->zoom() > 1) words += QString("zoom %1").arg(view_->zoom());
  status_->tell(words.join(" · "), {});
  words_->setCanPut(tool.colour);
  stamps_->setCanPut(tool.colour);
}

}  // namespace gridwright
