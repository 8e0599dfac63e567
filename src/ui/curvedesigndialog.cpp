#include "ui/curvedesigndialog.h"

#include "ui/titelbreite.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPixmap>
#include <QPushButton>

namespace pequi {

namespace {

constexpr const char* kMusterTexte[] = {"none", "solid", "dashed", "dotted", "dash-dot"};
constexpr const char* kSymbolTexte[] = {"none", "dot", "circle", "square", "triangle", "diamond", "cross", "star"};
constexpr uint32_t kFarben[] = {0x000000, 0x1f4e9c, 0xc0392b, 0x1e8449, 0x8e44ad, 0xd35400,
                                0x117a8b, 0x7d6608, 0x555555, 0xe91e63, 0x00bcd4, 0xffc107};

QIcon FarbIcon(QRgb c) {
  QPixmap p(16, 16);
  p.fill(QColor(c));
  return QIcon(p);
}

void FarbeEintragen(QComboBox* box, uint32_t farbe) {
  const int k = box->findData(QVariant::fromValue(farbe));
  if (k >= 0) {
    box->setCurrentIndex(k);
    return;
  }
  box->addItem(FarbIcon(0xff000000u | farbe), QColor(QRgb(farbe)).name(), QVariant::fromValue(farbe));
  box->setCurrentIndex(box->count() - 1);
}

}  // namespace

CurveDesignDialog::CurveDesignDialog(const peq::SerienStil& stil, const QString& title, QWidget* parent)
    : QDialog(parent) {
  setObjectName(QStringLiteral("frmKurvenDesign"));
  setWindowTitle(title);
  auto* form = new QFormLayout(this);

  muster_ = new QComboBox(this);
  muster_->setObjectName(QStringLiteral("cmbMuster"));
  for (const char* t : kMusterTexte) muster_->addItem(QString::fromLatin1(t));
  muster_->setCurrentIndex(static_cast<int>(stil.Muster));
  form->addRow(QStringLiteral("line pattern"), muster_);

  breite_ = new QDoubleSpinBox(this);
  breite_->setObjectName(QStringLiteral("txtBreite"));
  breite_->setRange(0.5, 10.0);
  breite_->setSingleStep(0.5);
  breite_->setDecimals(1);
  breite_->setValue(stil.Breite);
  form->addRow(QStringLiteral("line width"), breite_);

  farbe_ = new QComboBox(this);
  farbe_->setObjectName(QStringLiteral("cmbFarbe"));
  for (uint32_t c : kFarben)
    farbe_->addItem(FarbIcon(0xff000000u | c), QColor(QRgb(c)).name(), QVariant::fromValue(c));
  FarbeEintragen(farbe_, stil.Farbe);
  auto* mehr = new QPushButton(QStringLiteral("..."), this);
  mehr->setObjectName(QStringLiteral("cmdFarbe"));
  mehr->setAutoDefault(false);
  connect(mehr, &QPushButton::clicked, this, &CurveDesignDialog::FarbeWaehlen);
  auto* farbRow = new QHBoxLayout;
  farbRow->addWidget(farbe_, 1);
  farbRow->addWidget(mehr);
  form->addRow(QStringLiteral("colour"), farbRow);

  symbol_ = new QComboBox(this);
  symbol_->setObjectName(QStringLiteral("cmbSymbol"));
  for (const char* t : kSymbolTexte) symbol_->addItem(QString::fromLatin1(t));
  symbol_->setCurrentIndex(static_cast<int>(stil.Sym));
  form->addRow(QStringLiteral("symbol"), symbol_);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  ok_ = buttons->button(QDialogButtonBox::Ok);
  ok_->setObjectName(QStringLiteral("cmdOK"));
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  form->addRow(buttons);
  TitelPlatz(this);
}

void CurveDesignDialog::FarbeWaehlen() {
  const QColor alt(QRgb(farbe_->currentData().value<uint32_t>()));
  const QColor c = QColorDialog::getColor(alt, this);
  if (c.isValid()) FarbeEintragen(farbe_, c.rgb() & 0xffffffu);
}

peq::SerienStil CurveDesignDialog::Stil() const {
  peq::SerienStil s;
  s.Muster = static_cast<peq::LinienMuster>(muster_->currentIndex());
  s.Breite = static_cast<float>(breite_->value());
  s.Farbe = farbe_->currentData().value<uint32_t>();
  s.Sym = static_cast<peq::Symbol>(symbol_->currentIndex());
  return s;
}

}  // namespace pequi
