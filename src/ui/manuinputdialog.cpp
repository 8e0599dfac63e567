#include "ui/manuinputdialog.h"

#include <QAction>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>
#include <array>
#include <functional>

#include "ui/knopf.h"
#include "ui/qtconvert.h"
#include "ui/zahlenfilter.h"

namespace pequi {

ManuInputDialog::ManuInputDialog(peq::mdiPEQ& f, QWidget* parent) : StateDialog(f, peq::WindowId::frmXYEdit, parent) {
  setObjectName(QStringLiteral("frmManuInput"));
  setWindowModality(Qt::NonModal);
  peq::frmManuInput& w = f_.ManuInput;

  grid_ = new QTableWidget(this);
  grid_->setObjectName(QStringLiteral("Grid"));
  grid_->setColumnCount(3);
  grid_->verticalHeader()->hide();
  grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  lblKopf_ = new QLabel(this);
  lblZeile_ = new QLabel(this);
  txtComment_ = new QLineEdit(this);
  txtComment_->setObjectName(QStringLiteral("txtComment"));
  for (int k = 0; k < 2; ++k) {
    y_[static_cast<std::size_t>(k)] = new QLineEdit(this);
    y_[static_cast<std::size_t>(k)]->setObjectName(QStringLiteral("y%1").arg(k));
    ZahlenFilter::Install(y_[static_cast<std::size_t>(k)]);
  }
  cmbSep_ = new QComboBox(this);
  cmbSep_->setObjectName(QStringLiteral("cmbSep"));
  cmbSep_->addItems({QStringLiteral(";"), QStringLiteral(","), QStringLiteral("tab"), QStringLiteral("blank")});
  optEdit_ = new QRadioButton(QStringLiteral("Edit line"), this);
  optAdd_ = new QRadioButton(QStringLiteral("Add line"), this);
  optPunkte_ = new QRadioButton(QStringLiteral("as points"), this);
  optPunkte_->setObjectName(QStringLiteral("optIsPoints"));
  optKurve_ = new QRadioButton(QStringLiteral("as curve"), this);
  fraManipulation_ = new QGroupBox(Q(peq::kManuManipCaption), this);
  fraManipulation_->setObjectName(QStringLiteral("fraManipulation"));
  auto* manip = new QGridLayout(fraManipulation_);
  for (int k = 0; k < 6; ++k) {
    optManip_[static_cast<std::size_t>(k)] = new QRadioButton(Q(peq::kXYManipText[k]), fraManipulation_);
    manip->addWidget(optManip_[static_cast<std::size_t>(k)], k / 2, k % 2);
  }
  txtW_ = new QLineEdit(fraManipulation_);
  txtW_->setObjectName(QStringLiteral("txtW"));
  ZahlenFilter::Install(txtW_);
  manip->addWidget(new QLabel(QStringLiteral("W ="), fraManipulation_), 3, 0);
  manip->addWidget(txtW_, 3, 1);
  manip->addWidget(Knopf(fraManipulation_, "cmdExecManip", peq::kManuExecCaption), 4, 0, 1, 2);

  struct Def {
    const char* name;
    const char* caption;
    const char* tip;
  };
  const Def defs[] = {{"cmdLoad", peq::kManuLoadCaption, nullptr},
                      {"cmdSave", peq::kManuSaveCaption, nullptr},
                      {"cmdClipEinfuegen", peq::kManuPasteCaption, nullptr},
                      {"XSort", "&x-Sort", nullptr},
                      {"YSort", "&y-Sort", nullptr},
                      {"cmdChangeXY", "x <=> y", peq::kManuChangeTip},
                      {"cmdErase", peq::kManuEraseCaption, nullptr},
                      {"cmdAus", peq::kManuAusCaption, peq::kManuAusTip},
                      {"cmdManip", peq::kManuManipCaption, nullptr},
                      {"cmdDrawManu", peq::kManuDrawCaption, nullptr},
                      {"cmdPrint", peq::kManuPrintCaption, nullptr},
                      {"cmdEsc", peq::kManuEscCaption, nullptr}};
  auto* knoepfe = new QVBoxLayout;
  for (const Def& d : defs) knoepfe->addWidget(Knopf(this, d.name, d.caption, d.tip));
  knoepfe->addWidget(optPunkte_);
  knoepfe->addWidget(optKurve_);
  knoepfe->addWidget(new QLabel(Q(peq::kManuSepTitel), this));
  knoepfe->addWidget(cmbSep_);
  knoepfe->addStretch(1);

  auto* links = new QVBoxLayout;
  links->addWidget(txtComment_);
  links->addWidget(lblKopf_);
  links->addWidget(grid_, 1);
  links->addWidget(lblZeile_);
  auto* eingabe = new QHBoxLayout;
  eingabe->addWidget(new QLabel(QStringLiteral("x"), this));
  eingabe->addWidget(y_[0]);
  eingabe->addWidget(new QLabel(QStringLiteral("y"), this));
  eingabe->addWidget(y_[1]);
  links->addLayout(eingabe);
  auto* modus = new QHBoxLayout;
  modus->addWidget(optEdit_);
  modus->addWidget(optAdd_);
  auto* ok = Knopf(this, "OKinput", "Transfer input data to the list <+>");
  modus->addWidget(ok, 1);
  links->addLayout(modus);
  links->addWidget(fraManipulation_);
  auto* top = new QHBoxLayout(this);
  top->addLayout(links, 1);
  top->addLayout(knoepfe);
  resize(640, 560);

  connect(txtComment_, &QLineEdit::textEdited, this, [&w](const QString& t) { w.txtComment = S(t); });
  connect(ok, &QPushButton::clicked, this, [this, &w] {
    w.y = {S(y_[0]->text()), S(y_[1]->text())};
    Do([&] { w.OKinput_Click(f_); });
  });
  connect(optEdit_, &QRadioButton::clicked, this, [this, &w] { Do([&] { w.optInputMode_Click(false); }); });
  connect(optAdd_, &QRadioButton::clicked, this, [this, &w] { Do([&] { w.optInputMode_Click(true); }); });
  connect(optPunkte_, &QRadioButton::clicked, this, [&w] { w.AlsPunkte = true; });
  connect(optKurve_, &QRadioButton::clicked, this, [&w] { w.AlsPunkte = false; });
  connect(cmbSep_, qOverload<int>(&QComboBox::activated), this, [&w](int i) { w.cmbSep = i; });
  for (int k = 0; k < 6; ++k)
    connect(optManip_[static_cast<std::size_t>(k)], &QRadioButton::clicked, this, [&w, k] { w.optManip = k; });
  connect(txtW_, &QLineEdit::textEdited, this, [&w](const QString& t) { w.txtW = S(t); });
  connect(grid_, &QTableWidget::cellClicked, this, [this, &w](int r, int c) {
    if (rendering_) return;
    Do([&] { w.Grid_Click(r + 1, c); });
    MarkeUebernehmen();
  });
  auto knopf = [this](const char* name, auto fn) {
    connect(Button(name), &QPushButton::clicked, this, [this, fn] {
      MarkeUebernehmen();
      Do(fn);
    });
  };
  knopf("cmdLoad", [this, &w] { w.cmdLoad_Click(f_); });
  knopf("cmdSave", [this, &w] { w.cmdSave_Click(f_); });
  knopf("cmdClipEinfuegen", [this, &w] { w.cmdClipEinfuegen_Click(f_); });
  knopf("XSort", [&w] { w.XSort_Click(); });
  knopf("YSort", [&w] { w.YSort_Click(); });
  knopf("cmdChangeXY", [&w] { w.cmdChangeXY_Click(); });
  knopf("cmdErase", [this, &w] { w.cmdErase_Click(f_); });
  knopf("cmdAus", [this, &w] { w.cmdAus_Click(f_); });
  knopf("cmdManip", [&w] { w.cmdManip_Click(); });
  knopf("cmdExecManip", [this, &w] { w.cmdExecManip_Click(f_); });
  knopf("cmdDrawManu", [this, &w] { w.cmdDrawManu_Click(f_); });
  knopf("cmdPrint", [this, &w] { w.cmdPrint_Click(f_); });
  knopf("cmdEsc", [this, &w] { w.cmdEsc_Click(f_); });
  // The grid's edit menu, on the right mouse button.
  grid_->setContextMenuPolicy(Qt::ActionsContextMenu);
  const std::array<std::function<void()>, 4> edit = {[this, &w] { w.mnuKopieren_Click(f_); },
                                                     [this, &w] { w.mnuEinfuegen_Click(f_); },
                                                     [this, &w] { w.mnuNull_Click(f_); },
                                                     [this, &w] { w.mnuEntfernen_Click(f_); }};
  for (std::size_t k = 0; k < edit.size(); ++k) {
    auto* a = new QAction(Q(peq::kManuEditCaptions[k]), grid_);
    a->setObjectName(QStringLiteral("mnuEdit2_%1").arg(k));
    connect(a, &QAction::triggered, this, [this, fn = edit[k]] {
      MarkeUebernehmen();
      Do(fn);
    });
    grid_->addAction(a);
  }
  Render();
}

QPushButton* ManuInputDialog::Button(const char* name) const {
  return findChild<QPushButton*>(QString::fromLatin1(name));
}

void ManuInputDialog::MarkeUebernehmen() {
  peq::frmManuInput& w = f_.ManuInput;
  const QList<QTableWidgetSelectionRange> r = grid_->selectedRanges();
  if (r.isEmpty()) return;
  w.Markieren(r.first().topRow() + 1, r.first().bottomRow() + 1);
  w.MarkSpalte = std::max(1, r.first().leftColumn());
}

void ManuInputDialog::Render() {
  rendering_ = true;
  const peq::frmManuInput& w = f_.ManuInput;
  setWindowTitle(Q(w.Caption));
  lblKopf_->setText(Q(w.Kopf));
  lblZeile_->setText(Q(w.ZeileText));
  if (txtComment_->text() != Q(w.txtComment)) txtComment_->setText(Q(w.txtComment));
  grid_->setHorizontalHeaderLabels({QStringLiteral("No."), QStringLiteral("x"), QStringLiteral("y")});
  const auto zeilen = w.Zeilen();
  {
    QSignalBlocker b(grid_);
    grid_->setRowCount(static_cast<int>(zeilen.size()));
    for (int r = 0; r < static_cast<int>(zeilen.size()); ++r)
      for (int c = 0; c < 3; ++c)
        grid_->setItem(r, c, new QTableWidgetItem(Q(zeilen[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)])));
  }
  y_[0]->setText(Q(w.y[0]));
  y_[1]->setText(Q(w.y[1]));
  cmbSep_->setCurrentIndex(w.cmbSep);
  optPunkte_->setChecked(w.AlsPunkte);
  optKurve_->setChecked(!w.AlsPunkte);
  optAdd_->setChecked(w.AddMode);
  optEdit_->setChecked(!w.AddMode);
  fraManipulation_->setVisible(w.fraManipulation);
  optManip_[static_cast<std::size_t>(std::clamp(w.optManip, 0, 5))]->setChecked(true);
  txtW_->setText(Q(w.txtW));
  rendering_ = false;
}

void ManuInputDialog::Cancel() { f_.ManuInput.cmdEsc_Click(f_); }

}  // namespace pequi
