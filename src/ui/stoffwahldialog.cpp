#include "ui/stoffwahldialog.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>

#include "ui/qtconvert.h"
#include "ui/zahlenfilter.h"
#include "windows/stoffwahl.h"

namespace pequi {

namespace {

// Sets the items of a list to the texts, touching only what changed (the scroll stays).
void SetItems(QListWidget* list, const std::vector<std::string>& texts) {
  while (list->count() > static_cast<int>(texts.size())) delete list->takeItem(list->count() - 1);
  for (std::size_t k = 0; k < texts.size(); ++k) {
    const QString t = Q(texts[k]);
    if (static_cast<int>(k) < list->count()) {
      if (list->item(static_cast<int>(k))->text() != t) list->item(static_cast<int>(k))->setText(t);
    } else {
      list->addItem(t);
    }
  }
}

}  // namespace

StoffwahlDialog::StoffwahlDialog(peq::mdiPEQ& f, QWidget* parent) : StateDialog(f, peq::WindowId::frmStoffwahl, parent) {
  setObjectName(QStringLiteral("frmStoffwahl"));
  setWindowModality(Qt::ApplicationModal);
  const QFont mono = QFontDatabase::systemFont(QFontDatabase::FixedFont);

  // The head: its words stand over the columns of the entries (place, formula, name).
  auto* head = new QWidget(this);
  head->setObjectName(QStringLiteral("StoffListeKopf"));
  const QStringList worte = Q(peq::kStoffListeKopf).split(QLatin1Char(' '), Qt::SkipEmptyParts);
  for (int k = 0; k < worte.size() && k < 3; ++k) {
    kopf_[static_cast<std::size_t>(k)] = new QLabel(worte[k], head);
    kopf_[static_cast<std::size_t>(k)]->setFont(mono);
    kopf_[static_cast<std::size_t>(k)]->setObjectName(QStringLiteral("Kopf_%1").arg(k));
  }
  head->setFixedHeight(QFontMetrics(mono).height() + 4);
  stoffListe_ = new QListWidget(this);
  stoffListe_->setObjectName(QStringLiteral("StoffListe"));
  stoffListe_->setFont(mono);
  stoffListe_->setMinimumWidth(520);
  stoffListe_->installEventFilter(this);

  cmdRightOne_ = new QPushButton(QStringLiteral(">"), this);
  cmdRightOne_->setObjectName(QStringLiteral("cmdRightOne"));
  cmdLeftOne_ = new QPushButton(QStringLiteral("<"), this);
  cmdLeftOne_->setObjectName(QStringLiteral("cmdLeftOne"));
  cmdLeftAll_ = new QPushButton(QStringLiteral("<<"), this);
  cmdLeftAll_->setObjectName(QStringLiteral("cmdLeftAll"));
  cmdUp_ = new QPushButton(QString(QChar(0x2191)), this);
  cmdUp_->setObjectName(QStringLiteral("cmdUp"));
  cmdDown_ = new QPushButton(QString(QChar(0x2193)), this);
  cmdDown_->setObjectName(QStringLiteral("cmdDown"));
  auto* moves = new QVBoxLayout;
  moves->addStretch();
  for (QPushButton* b : {cmdRightOne_, cmdLeftOne_, cmdLeftAll_, cmdUp_, cmdDown_}) {
    b->setFixedWidth(44);
    b->setAutoDefault(false);
    moves->addWidget(b);
  }
  moves->addStretch();

  lstSelected_ = new QListWidget(this);
  lstSelected_->setObjectName(QStringLiteral("lstSelected"));
  lstSelected_->setFont(mono);
  lstSelected_->setMinimumWidth(330);
  auto* numbers = new QVBoxLayout;
  numbers->setSpacing(0);
  const int rowHeight = QFontMetrics(mono).height() + 2;
  for (int k = 0; k < 10; ++k) {
    QLabel* l = new QLabel(QString::number(k + 1), this);
    l->setObjectName(QStringLiteral("Label3_%1").arg(k));
    l->setFixedHeight(rowHeight);
    l->setToolTip(Q(peq::kLabel3Tip));
    l->setCursor(Qt::PointingHandCursor);
    l->installEventFilter(this);
    label3_[static_cast<std::size_t>(k)] = l;
    numbers->addWidget(l);
  }
  numbers->addStretch();

  auto* lists = new QHBoxLayout;
  auto* left = new QVBoxLayout;
  left->addWidget(head);
  left->addWidget(stoffListe_, 1);
  lists->addLayout(left, 3);
  lists->addLayout(moves);
  auto* right = new QHBoxLayout;
  right->addLayout(numbers);
  right->addWidget(lstSelected_, 1);
  auto* rightBox = new QVBoxLayout;
  rightBox->addSpacing(head->minimumHeight());
  rightBox->addLayout(right, 1);
  lists->addLayout(rightBox, 2);

  nameCombo_ = new QComboBox(this);
  nameCombo_->setObjectName(QStringLiteral("NameCombo"));
  nameCombo_->setEditable(true);
  nameCombo_->setInsertPolicy(QComboBox::NoInsert);
  nameCombo_->setMinimumWidth(300);
  // An editable combo box takes the keys itself (its line edit only gets them passed on), so
  // Return is caught on the box.
  nameCombo_->installEventFilter(this);
  nameCombo_->lineEdit()->installEventFilter(this);
  text1_ = new QLineEdit(this);
  text1_->setObjectName(QStringLiteral("Text1"));
  text1_->setMaximumWidth(90);
  ZahlenFilter::Install(text1_);
  text1_->installEventFilter(this);
  lblCAS_ = new QLabel(this);
  lblCAS_->setObjectName(QStringLiteral("lblCAS"));

  cmdOK_ = new QPushButton(Q(peq::kGemischOKCaption), this);
  cmdOK_->setObjectName(QStringLiteral("GemischOK"));
  cmdOK_->setAutoDefault(false);
  // Return where no box takes it confirms the mixture.
  cmdOK_->setDefault(true);
  cmdEsc_ = new QPushButton(Mnemonic(peq::kStoffwahlEscCaption), this);
  cmdEsc_->setObjectName(QStringLiteral("cmdStoffwahlEsc"));
  cmdEsc_->setAutoDefault(false);
  cmdHilfe_ = new QPushButton(Q(peq::kStoffwahlHilfeCaption), this);
  cmdHilfe_->setObjectName(QStringLiteral("cmdHilfe"));
  cmdHilfe_->setAutoDefault(false);

  auto* input = new QGridLayout;
  // The labels take the focus to their boxes with Alt and a letter.
  auto* lblName = new QLabel(QStringLiteral("&") + Q(peq::kNameComboLabel), this);
  lblName->setBuddy(nameCombo_);
  auto* lblNr = new QLabel(QStringLiteral("&") + Q(peq::kText1Label), this);
  lblNr->setBuddy(text1_);
  input->addWidget(lblName, 0, 0);
  input->addWidget(nameCombo_, 0, 1);
  input->addWidget(lblNr, 0, 2);
  input->addWidget(text1_, 0, 3);
  input->addWidget(lblCAS_, 1, 1, 1, 3);
  auto* buttons = new QHBoxLayout;
  buttons->addLayout(input, 1);
  buttons->addWidget(cmdOK_);
  buttons->addWidget(cmdEsc_);
  buttons->addWidget(cmdHilfe_);

  auto* all = new QVBoxLayout(this);
  all->addLayout(lists, 1);
  all->addLayout(buttons);
  resize(1000, 560);
  // The user starts by typing a name.
  nameCombo_->setFocus(Qt::OtherFocusReason);

  connect(stoffListe_, &QListWidget::currentRowChanged, this, [this](int row) { Do([&] { w().StoffListe_Click(f_, row); }); });
  connect(stoffListe_, &QListWidget::itemDoubleClicked, this, [this] { Do([&] { w().StoffListe_DblClick(f_); }); });
  connect(lstSelected_, &QListWidget::currentRowChanged, this, [this](int row) { w().lstSelectedIndex = row; });
  connect(lstSelected_, &QListWidget::itemDoubleClicked, this, [this] { Do([&] { w().lstSelected_DblClick(f_); }); });
  connect(nameCombo_, &QComboBox::editTextChanged, this, [this](const QString& t) { w().NameCombo = S(t); });
  connect(nameCombo_, &QComboBox::textActivated, this, [this](const QString& t) { w().NameCombo = S(t); });
  connect(text1_, &QLineEdit::textEdited, this, [this](const QString& t) { Do([&] { w().Text1_Change(f_, S(t)); }); });
  connect(cmdRightOne_, &QPushButton::clicked, this, [this] { Do([&] { w().cmdRightOne(f_); }); });
  connect(cmdLeftOne_, &QPushButton::clicked, this, [this] { Do([&] { w().cmdLeftOne(f_); }); });
  connect(cmdLeftAll_, &QPushButton::clicked, this, [this] { Do([&] { w().cmdLeftAll(f_); }); });
  connect(cmdUp_, &QPushButton::clicked, this, [this] { Do([&] { w().cmdUp(); }); });
  connect(cmdDown_, &QPushButton::clicked, this, [this] { Do([&] { w().cmdDown(); }); });
  connect(cmdOK_, &QPushButton::clicked, this, [this] { Do([&] { w().GemischOK(f_); }); });
  connect(cmdEsc_, &QPushButton::clicked, this, [this] { Do([&] { Cancel(); }); });
  connect(cmdHilfe_, &QPushButton::clicked, this, [this] { w().cmdHilfe(f_); });
  Render();
}

// The boxes still signal while the base class deletes them (the combo box clears its text):
// those signals must not reach this window, which is no longer whole by then.
StoffwahlDialog::~StoffwahlDialog() {
  for (QObject* child : findChildren<QObject*>()) child->disconnect(this);
}

void StoffwahlDialog::Render() {
  const peq::frmStoffwahl& s = f_.Stoffwahl;
  setWindowTitle(Q(s.Caption));
  {
    const QSignalBlocker b1(stoffListe_);
    SetItems(stoffListe_, s.StoffListe);
    stoffListe_->setCurrentRow(s.StoffListeIndex);
    if (s.StoffListeIndex >= 0) stoffListe_->scrollToItem(stoffListe_->item(s.StoffListeIndex));
  }
  {
    const QSignalBlocker b2(lstSelected_);
    SetItems(lstSelected_, s.lstSelected);
    lstSelected_->setCurrentRow(s.lstSelectedIndex);
  }
  for (std::size_t k = 0; k < 10; ++k) label3_[k]->setVisible(s.Label3Visible[k]);
  {
    const QSignalBlocker b3(nameCombo_);
    QStringList hist;
    for (const std::string& h : s.NameHistorie) hist << Q(h);
    QStringList current;
    for (int k = 0; k < nameCombo_->count(); ++k) current << nameCombo_->itemText(k);
    if (current != hist) {
      nameCombo_->clear();
      nameCombo_->addItems(hist);
    }
    if (nameCombo_->currentText() != Q(s.NameCombo)) nameCombo_->setEditText(Q(s.NameCombo));
  }
  {
    const QSignalBlocker b4(text1_);
    if (text1_->text() != Q(s.Text1)) text1_->setText(Q(s.Text1));
  }
  lblCAS_->setText(Q(s.lblCAS));
}

void StoffwahlDialog::Cancel() { w().cmdStoffwahlEsc(f_); }

void StoffwahlDialog::KopfAusrichten() {
  // Column c of an entry starts at the text margin of the items plus c character widths.
  const QFontMetrics fm(stoffListe_->font());
  const int rand = stoffListe_->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, stoffListe_) + 1;
  const QPoint links = stoffListe_->viewport()->mapTo(this, QPoint(0, 0));
  QWidget* head = kopf_[0] ? kopf_[0]->parentWidget() : nullptr;
  if (!head) return;
  const int x0 = links.x() - head->mapTo(this, QPoint(0, 0)).x() + rand;
  const int spalten[3] = {0, 6, 19};  // place, formula, name
  for (std::size_t k = 0; k < 3; ++k) {
    if (!kopf_[k]) continue;
    kopf_[k]->adjustSize();
    kopf_[k]->move(x0 + spalten[k] * fm.horizontalAdvance(QLatin1Char('0')) - kopf_[k]->contentsMargins().left() -
                       kopf_[k]->margin(),
                   0);
  }
}

void StoffwahlDialog::resizeEvent(QResizeEvent* e) {
  StateDialog::resizeEvent(e);
  KopfAusrichten();
}

void StoffwahlDialog::showEvent(QShowEvent* e) {
  StateDialog::showEvent(e);
  KopfAusrichten();
  nameCombo_->setFocus(Qt::OtherFocusReason);
}

bool StoffwahlDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    const bool ret = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (ret && (watched == nameCombo_ || watched == nameCombo_->lineEdit())) {
      if (!nameCombo_->currentText().isEmpty()) {
        w().NameCombo = S(nameCombo_->currentText());
        Do([&] { w().NameCombo_Return(f_); });
        if (Loaded()) {
          nameCombo_->setFocus();
          nameCombo_->lineEdit()->selectAll();
        }
      }
      return true;
    }
    if (ret && (watched == stoffListe_ || watched == text1_)) {
      Do([&] { w().cmdRightOne(f_); });
      return true;
    }
  }
  if (event->type() == QEvent::MouseButtonPress) {
    for (int k = 0; k < 10; ++k)
      if (watched == label3_[static_cast<std::size_t>(k)]) {
        Do([&] { w().Label3_Click(f_, k); });
        return true;
      }
  }
  return StateDialog::eventFilter(watched, event);
}

}  // namespace pequi
