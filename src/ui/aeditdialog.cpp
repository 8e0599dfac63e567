#include "ui/aeditdialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

#include <map>
#include <string>

#include "ui/knopf.h"
#include "ui/qtconvert.h"
#include "ui/zahlenfilter.h"
#include "windows/aedit.h"

namespace pequi {

namespace {

QLabel* Hinweis(const char* text, QWidget* parent) {
  auto* l = new QLabel(Q(text), parent);
  l->setWordWrap(true);
  return l;
}

// The form of the equation of a group head, "" for none.
const char* Form(const std::string& gruppe) {
  if (gruppe == peq::kGruppeWagner) return peq::kFormWagner;
  if (gruppe == peq::kGruppeALP || gruppe == peq::kGruppeAHP) return peq::kFormAntoine;
  if (gruppe == peq::kGruppeFrost) return peq::kFormFrost;
  if (gruppe == peq::kGruppeAugust) return peq::kFormAugust;
  return "";
}

}  // namespace

AEditDialog::AEditDialog(peq::mdiPEQ& f, QWidget* parent) : StateDialog(f, peq::WindowId::frmAEdit, parent) {
  setObjectName(QStringLiteral("frmAEdit"));
  // Above the model window, which is modal itself when it opens the editor.
  setWindowModality(Qt::ApplicationModal);
  txt_.assign(peq::AEditFelder().size(), nullptr);

  lblKopf_ = new QLabel(this);
  lblKopf_->setObjectName(QStringLiteral("lblKopf"));
  up_ = Knopf(QStringLiteral("Up"), QStringLiteral("cmdUp"), this);
  down_ = Knopf(QStringLiteral("Down"), QStringLiteral("cmdDown"), this);
  auto* kopf = new QHBoxLayout;
  kopf->addWidget(lblKopf_, 1);
  kopf->addWidget(up_);
  kopf->addWidget(down_);

  lblNurLesen_ = Hinweis(peq::kAEditNurLesen, this);
  lblNurLesen_->setObjectName(QStringLiteral("lblNurLesen"));
  lblNurLesen_->setStyleSheet(QStringLiteral("color: #a00000;"));

  tabs_ = new QTabWidget(this);
  tabs_->setObjectName(QStringLiteral("tabAEdit"));
  for (int t = 0; t < 5; ++t) {
    auto* scroll = new QScrollArea(tabs_);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(BaueTab(t));
    tabs_->addTab(scroll, Q(peq::kAEditTabs[t]));
  }

  lblHinweis_ = new QLabel(this);
  lblHinweis_->setObjectName(QStringLiteral("lblHinweis"));
  lblHinweis_->setWordWrap(true);
  lblHinweis_->setStyleSheet(QStringLiteral("color: #a00000;"));

  ok_ = Knopf(Q(peq::kAEditOKCaption), QStringLiteral("OK"), this);
  auto* esc = Knopf(Q(peq::kAEditEscCaption), QStringLiteral("esc"), this);
  auto* hilfe = Knopf(QStringLiteral("?"), QStringLiteral("cmdHilfe"), this);
  hilfe->setFixedWidth(28);
  writeBank_ = Knopf(Q(peq::kWriteBankCaption), QStringLiteral("WriteDataBaseQ07"), this);
  auto* knoepfe = new QHBoxLayout;
  knoepfe->addWidget(ok_);
  knoepfe->addWidget(esc);
  knoepfe->addWidget(hilfe);
  knoepfe->addStretch();
  auto* bank = new QVBoxLayout;
  bank->addWidget(writeBank_);
  bank->addWidget(Hinweis(peq::kWriteBankNote, this));

  auto* all = new QVBoxLayout(this);
  all->addLayout(kopf);
  all->addWidget(lblNurLesen_);
  all->addWidget(tabs_, 1);
  all->addWidget(Hinweis(peq::kAEditOhneApply, this));
  all->addWidget(lblHinweis_);
  all->addLayout(knoepfe);
  all->addLayout(bank);

  connect(tabs_, &QTabWidget::currentChanged, this, [this](int t) { w().Tab = t; });
  connect(up_, &QPushButton::clicked, this, [this] { Do([&] { w().cmdUp(f_); }); });
  connect(down_, &QPushButton::clicked, this, [this] { Do([&] { w().cmdDown(f_); }); });
  connect(ok_, &QPushButton::clicked, this, [this] { Do([&] { w().OK(f_); }); });
  connect(esc, &QPushButton::clicked, this, [this] { Do([&] { w().esc(f_); }); });
  connect(hilfe, &QPushButton::clicked, this, [this] { Do([&] { w().cmdHilfe(f_); }); });
  connect(writeBank_, &QPushButton::clicked, this, [this] { Do([&] { w().WriteDataBaseQ07(f_); }); });
  resize(760, 640);
  Render();
}

QWidget* AEditDialog::BaueTab(int tab) {
  auto* page = new QWidget;
  auto* v = new QVBoxLayout(page);
  const auto& felder = peq::AEditFelder();
  const bool inkr = tab >= 3;
  if (tab == 0) v->addWidget(Hinweis(peq::kAEditTemporaer, page));
  if (tab == 1) {
    // The equation the models use, above the equations.
    lblGleichung_ = new QLabel(page);
    lblGleichung_->setObjectName(QStringLiteral("lblGleichung"));
    v->addWidget(lblGleichung_);
  }

  // The groups of the tab in the order of their first field; each a box with a grid of caption,
  // field and unit (for the increments: count, "times group #", group).
  std::map<std::string, QGridLayout*> grids;
  QGridLayout* ohneGruppe = nullptr;
  QGridLayout* raster = new QGridLayout;  // group boxes two by two
  int boxen = 0;
  for (std::size_t n = 0; n < felder.size(); ++n) {
    const peq::AEditFeldDef& d = felder[n];
    if (d.Tab != tab) continue;
    const std::string gruppe = d.Gruppe;
    QGridLayout* g = nullptr;
    if (gruppe.empty()) {
      if (!ohneGruppe) {
        ohneGruppe = new QGridLayout;
        v->addLayout(ohneGruppe);
      }
      g = ohneGruppe;
    } else if (grids.count(gruppe)) {
      g = grids[gruppe];
    } else {
      auto* box = new QGroupBox(Q(gruppe), page);
      auto* bv = new QVBoxLayout(box);
      const std::string form = Form(gruppe);
      if (!form.empty()) {
        auto* l = new QLabel(Q(form), box);
        l->setWordWrap(true);
        bv->addWidget(l);
      }
      g = new QGridLayout;
      if (inkr) g->setColumnStretch(3, 1);  // the pair stays together at the left
      bv->addLayout(g);
      if (gruppe == peq::kGruppeAugust) {
        august_ = Knopf(Q(std::string(peq::kAugustCaption1) + "\n" + peq::kAugustCaption2),
                        QStringLiteral("cmdCorrelateAUGUST"), box);
        connect(august_, &QPushButton::clicked, this, [this] { Do([&] { w().cmdCorrelateAUGUST(f_); }); });
        bv->addWidget(august_);
      }
      bv->addStretch();
      grids[gruppe] = g;
      const int spalten = inkr ? 1 : 2;
      raster->addWidget(box, boxen / spalten, boxen % spalten);
      ++boxen;
    }
    auto* box = new QLineEdit(page);
    box->setObjectName(QStringLiteral("txt_%1").arg(n));
    if (d.Art != peq::AEditArt::Text) ZahlenFilter::Install(box);
    txt_[n] = box;
    connect(box, &QLineEdit::textEdited, this, [this, n](const QString& t) {
      if (n < w().Text.size()) w().Text[n] = S(t);
    });
    if (inkr) {
      // One row a pair: [count] "times group #" [group].
      const int row = g->rowCount();
      if (d.Art == peq::AEditArt::Anzahl) {
        g->addWidget(box, row, 0);
        g->addWidget(new QLabel(Q(peq::kInkrPaar), page), row, 1);
      } else {
        g->addWidget(box, row - 1, 2);
      }
      box->setMaximumWidth(80);
      continue;
    }
    const int row = g->rowCount();
    g->addWidget(new QLabel(Q(d.Caption), page), row, 0);
    g->addWidget(box, row, 1);
    g->addWidget(new QLabel(Q(d.Einheit), page), row, 2);
  }
  v->addLayout(raster);
  if (inkr) {
    const bool mod = tab == 3;
    auto* b = Knopf(Q(mod ? peq::kUNIFTabCaption : peq::kOUnifTabCaption),
                    mod ? QStringLiteral("cmdUNIFTab") : QStringLiteral("cmdOUnifTab"), page);
    connect(b, &QPushButton::clicked, this, [this, mod] {
      Do([&] { mod ? w().cmdUNIFTab(f_) : w().cmdOUnifTab(f_); });
    });
    auto* row = new QHBoxLayout;
    row->addWidget(b);
    row->addStretch();
    v->addLayout(row);
    v->addWidget(Hinweis(peq::kInkrHinweis, page));
  }
  v->addStretch();
  return page;
}

void AEditDialog::Render() {
  const peq::frmAEdit& a = f_.AEdit;
  setWindowTitle(Q(a.Caption));
  const std::string name = a.Text.empty() ? std::string() : a.Text[0];
  lblKopf_->setText(Q(name + "     " + a.lblSystemNr));
  lblNurLesen_->setVisible(a.NurLesen);
  for (std::size_t n = 0; n < txt_.size(); ++n) {
    QLineEdit* box = txt_[n];
    if (!box) continue;
    const QSignalBlocker b(box);
    const QString t = n < a.Text.size() ? Q(a.Text[n]) : QString();
    if (box->text() != t) box->setText(t);
    box->setReadOnly(a.NurLesen);
  }
  if (lblGleichung_) lblGleichung_->setText(Q(a.lblGleichung));
  lblHinweis_->setText(Q(a.Hinweis));
  lblHinweis_->setVisible(!a.Hinweis.empty());
  ok_->setEnabled(!a.NurLesen);
  writeBank_->setEnabled(!a.NurLesen);
  if (august_) august_->setEnabled(!a.NurLesen);
  up_->setEnabled(a.cmdUpEnabled);
  down_->setEnabled(a.cmdDownEnabled);
  if (tabs_->currentIndex() != a.Tab) {
    const QSignalBlocker b(tabs_);
    tabs_->setCurrentIndex(a.Tab);
  }
}

void AEditDialog::Cancel() { w().esc(f_); }

}  // namespace pequi
