#include "ui/tpxeditdialog.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>

#include "ui/knopf.h"
#include "ui/qtconvert.h"
#include "ui/zahlenfilter.h"

namespace pequi {

namespace {

// The cell editor of the grid goes through the key filter of the numeric boxes.
class ZahlenDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& o, const QModelIndex& i) const override {
    QWidget* w = QStyledItemDelegate::createEditor(parent, o, i);
    if (auto* e = qobject_cast<QLineEdit*>(w)) ZahlenFilter::Install(e);
    return w;
  }
};

}  // namespace

TpxEditDialog::TpxEditDialog(peq::mdiPEQ& f, QWidget* parent) : StateDialog(f, peq::WindowId::frmTpxEdit, parent) {
  setObjectName(QStringLiteral("frmTpxEdit"));
  setWindowModality(Qt::NonModal);
  peq::frmTpxEdit& w = f_.TpxEdit;

  grid_ = new QTableWidget(this);
  grid_->setObjectName(QStringLiteral("Grid"));
  grid_->setColumnCount(5);
  grid_->verticalHeader()->hide();
  grid_->setSelectionBehavior(QAbstractItemView::SelectItems);
  grid_->setItemDelegate(new ZahlenDelegate(grid_));
  grid_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  lblKopf_ = new QLabel(this);
  lblKopf_->setObjectName(QStringLiteral("lblKopf"));
  lblZeile_ = new QLabel(this);
  lblEdit_ = new QLabel(this);
  lblEdit_->setObjectName(QStringLiteral("txtEdit"));

  auto* eingabe = new QGridLayout;
  for (int k = 0; k < 4; ++k) {
    lblY_[static_cast<std::size_t>(k)] = new QLabel(this);
    y_[static_cast<std::size_t>(k)] = new QLineEdit(this);
    y_[static_cast<std::size_t>(k)]->setObjectName(QStringLiteral("y%1").arg(k));
    ZahlenFilter::Install(y_[static_cast<std::size_t>(k)]);
    eingabe->addWidget(lblY_[static_cast<std::size_t>(k)], 0, k);
    eingabe->addWidget(y_[static_cast<std::size_t>(k)], 1, k);
  }
  cmbT_ = new QComboBox(this);
  cmbT_->setObjectName(QStringLiteral("Opt_T_Unit"));
  for (const char* t : peq::kTEinheitText) cmbT_->addItem(Q(t));
  cmbP_ = new QComboBox(this);
  cmbP_->setObjectName(QStringLiteral("Opt_p_Unit"));
  for (const char* t : peq::kpEinheitText) cmbP_->addItem(Q(t));
  cmbKomp_ = new QComboBox(this);
  cmbKomp_->setObjectName(QStringLiteral("Opt_i_komp"));
  cmbKomp_->addItem(QStringLiteral("x1(L), x1(V)"));
  cmbKomp_->addItem(QStringLiteral("x2(L), x2(V)"));
  eingabe->addWidget(cmbT_, 2, 0);
  eingabe->addWidget(cmbP_, 2, 1);
  eingabe->addWidget(cmbKomp_, 2, 2, 1, 2);
  optEdit_ = new QRadioButton(Q(peq::kTpxModusCaptions[0]), this);
  optAdd_ = new QRadioButton(Q(peq::kTpxModusCaptions[1]), this);
  optAdd_->setObjectName(QStringLiteral("optInputMode"));
  auto* okInput = Knopf(this, "OKinput", peq::kTpxOKinputCaption);

  auto* knoepfe = new QGridLayout;
  struct Def {
    const char* name;
    const char* caption;
    const char* tip;
  };
  const Def defs[] = {{"cmdLoad", peq::kTpxLoadCaption, nullptr},
                      {"cmdAdd", peq::kTpxAddCaption, nullptr},
                      {"cmdSave", peq::kTpxSaveCaption, nullptr},
                      {"cmdClipEinfuegen", peq::kTpxPasteCaption, peq::kTpxPasteTip},
                      {"cmdAus", peq::kTpxAusCaption, peq::kTpxAusTip},
                      {"cmdErase", peq::kTpxEraseCaption, nullptr},
                      {"cmdTSort", "T-Sort", nullptr},
                      {"cmdpSort", "p-Sort", nullptr},
                      {"cmdx2Sort", "x(L)-Sort", nullptr},
                      {"cmdChange12", peq::kTpxChange12Caption, peq::kTpxChange12Tip},
                      {"cmdPrintTpx", peq::kTpxPrintCaption, nullptr},
                      {"cmdKonsTest", peq::kTpxKonsTestCaption, nullptr},
                      {"cmdFit", peq::kTpxFitCaption, nullptr},
                      {"cmdEsc", peq::kTpxEditEscCaption, nullptr}};
  int k = 0;
  for (const Def& d : defs) {
    knoepfe->addWidget(Knopf(this, d.name, d.caption, d.tip), k / 2, k % 2);
    ++k;
  }

  auto* links = new QVBoxLayout;
  links->addWidget(lblKopf_);
  links->addWidget(grid_, 1);
  links->addWidget(lblEdit_);
  links->addWidget(lblZeile_);
  links->addLayout(eingabe);
  auto* modus = new QHBoxLayout;
  modus->addWidget(optEdit_);
  modus->addWidget(optAdd_);
  modus->addWidget(okInput, 1);
  links->addLayout(modus);
  auto* top = new QHBoxLayout(this);
  top->addLayout(links, 1);
  top->addLayout(knoepfe);
  resize(900, 520);

  connect(okInput, &QPushButton::clicked, this, [this, &w] {
    for (int i = 0; i < 4; ++i) w.y[static_cast<std::size_t>(i)] = S(y_[static_cast<std::size_t>(i)]->text());
    Do([&] { w.OKinput_Click(f_); });
    if (w.Fokus >= 0) y_[static_cast<std::size_t>(w.Fokus)]->setFocus();
  });
  connect(optEdit_, &QRadioButton::clicked, this, [this, &w] { Do([&] { w.optInputMode_Click(f_.s, false); }); });
  connect(optAdd_, &QRadioButton::clicked, this, [this, &w] { Do([&] { w.optInputMode_Click(f_.s, true); }); });
  auto einheiten = [this, &w] {
    peq::TpxEinheiten e;
    e.TEinheit = static_cast<int16_t>(cmbT_->currentIndex());
    e.pEinheit = static_cast<int16_t>(cmbP_->currentIndex());
    e.iKomp = static_cast<int16_t>(cmbKomp_->currentIndex() + 1);
    Do([&] { w.Einheiten_Click(f_.s, e); });
  };
  for (QComboBox* c : {cmbT_, cmbP_, cmbKomp_}) connect(c, qOverload<int>(&QComboBox::activated), this, einheiten);
  connect(grid_, &QTableWidget::itemSelectionChanged, this, [this] {
    if (!rendering_) MarkeUebernehmen();
  });
  connect(grid_, &QTableWidget::cellClicked, this, [this, &w](int r, int c) {
    if (rendering_) return;
    Do([&] { w.Grid_Click(f_.s, r + 1, c); });
    MarkeUebernehmen();
  });
  connect(grid_, &QTableWidget::cellChanged, this, [this, &w](int r, int c) {
    if (rendering_ || c < 1) return;
    const QString t = grid_->item(r, c) ? grid_->item(r, c)->text() : QString();
    Do([&] { w.Zelle_Edit(f_, r + 1, c, S(t)); });
  });
  auto knopf = [this](const char* name, auto fn) {
    connect(Button(name), &QPushButton::clicked, this, [this, fn] {
      MarkeUebernehmen();
      Do(fn);
    });
  };
  knopf("cmdLoad", [this, &w] { w.cmdLoad_Click(f_); });
  knopf("cmdAdd", [this, &w] { w.cmdAdd_Click(f_); });
  knopf("cmdSave", [this, &w] { w.cmdSave_Click(f_); });
  knopf("cmdClipEinfuegen", [this, &w] { w.cmdClipEinfuegen_Click(f_); });
  knopf("cmdAus", [this, &w] { w.cmdAus_Click(f_); });
  knopf("cmdErase", [this, &w] { w.cmdErase_Click(f_); });
  knopf("cmdTSort", [this, &w] { w.cmdSort_Click(f_, "T"); });
  knopf("cmdpSort", [this, &w] { w.cmdSort_Click(f_, "p"); });
  knopf("cmdx2Sort", [this, &w] { w.cmdSort_Click(f_, "xL"); });
  knopf("cmdChange12", [this, &w] { w.cmdChange12_Click(f_); });
  knopf("cmdPrintTpx", [this, &w] { w.cmdPrintTpx_Click(f_); });
  knopf("cmdEsc", [this, &w] { w.cmdEsc_Click(f_); });
  Render();
}

QPushButton* TpxEditDialog::Button(const char* name) const { return findChild<QPushButton*>(QString::fromLatin1(name)); }

void TpxEditDialog::MarkeUebernehmen() {
  peq::frmTpxEdit& w = f_.TpxEdit;
  const QList<QTableWidgetSelectionRange> r = grid_->selectedRanges();
  if (r.isEmpty()) return;
  w.Markieren(r.first().topRow() + 1, r.first().bottomRow() + 1);
  w.MarkSpalte = std::max(1, r.first().leftColumn());
}

void TpxEditDialog::Render() {
  rendering_ = true;
  const peq::frmTpxEdit& w = f_.TpxEdit;
  setWindowTitle(Q(w.Caption));
  lblKopf_->setText(Q(w.Kopf));
  lblZeile_->setText(Q(w.ZeileText));
  lblEdit_->setText(Q(w.EditBox));
  const auto koepfe = peq::frmTpxEdit::Koepfe();
  QStringList h;
  for (const std::string& k : koepfe) h << Q(k);
  grid_->setHorizontalHeaderLabels(h);
  const auto zeilen = peq::frmTpxEdit::Zeilen(f_.s);
  {
    QSignalBlocker b(grid_);
    grid_->setRowCount(static_cast<int>(zeilen.size()));
    for (int r = 0; r < static_cast<int>(zeilen.size()); ++r)
      for (int c = 0; c < 5; ++c) {
        auto* it = new QTableWidgetItem(Q(zeilen[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)]));
        if (c == 0 || f_.s.ExpAnz == 0) it->setFlags(it->flags() & ~Qt::ItemIsEditable);
        grid_->setItem(r, c, it);
      }
  }
  const auto ek = w.EingabeKoepfe();
  for (int k = 0; k < 4; ++k) {
    lblY_[static_cast<std::size_t>(k)]->setText(Q(ek[static_cast<std::size_t>(k)]));
    y_[static_cast<std::size_t>(k)]->setText(Q(w.y[static_cast<std::size_t>(k)]));
  }
  cmbT_->setCurrentIndex(w.Einheiten.TEinheit);
  cmbP_->setCurrentIndex(w.Einheiten.pEinheit);
  cmbKomp_->setCurrentIndex(w.Einheiten.iKomp == 1 ? 0 : 1);
  optAdd_->setChecked(w.AddMode);
  optEdit_->setChecked(!w.AddMode);
  Button("cmdKonsTest")->setEnabled(w.cmdKonsTestEnabled);
  Button("cmdFit")->setEnabled(w.cmdFitEnabled);
  rendering_ = false;
}

void TpxEditDialog::Cancel() { f_.TpxEdit.cmdEsc_Click(f_); }

}  // namespace pequi
