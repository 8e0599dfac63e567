#include "ui/statedialog.h"

#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <string>
#include <vector>

#include "ui/qtconvert.h"
#include "windows/mnemonic.h"

namespace pequi {

StateDialog::StateDialog(peq::mdiPEQ& f, peq::WindowId id, QWidget* parent) : QDialog(parent), f_(f), id_(id) {
  setAttribute(Qt::WA_DeleteOnClose, false);
}

void StateDialog::reject() {
  if (Loaded())
    Do([this] { Cancel(); });
  else
    QDialog::reject();
}

void StateDialog::showEvent(QShowEvent* e) {
  QDialog::showEvent(e);
  if (tastenGesetzt_) return;
  tastenGesetzt_ = true;
  ZugriffstastenSetzen(this);
}

void ZugriffstastenSetzen(QWidget* w) {
  const QList<QPushButton*> knoepfe = w->findChildren<QPushButton*>();
  std::vector<std::string> texte;
  std::vector<bool> eigene;
  std::vector<QPushButton*> welche;
  // The keys of labels that lead to a box are taken already.
  for (QLabel* l : w->findChildren<QLabel*>()) {
    if (!l->buddy()) continue;
    texte.push_back(S(l->text()));
    eigene.push_back(true);
    welche.push_back(nullptr);
  }
  for (QPushButton* b : knoepfe) {
    if (b->isHidden()) continue;
    // Buttons without a letter ("<", "?", "1 - 2") keep their text as it is.
    if (!b->text().contains(QRegularExpression(QStringLiteral("[A-Za-z]")))) continue;
    const std::string t = S(b->text());
    const bool hat = peq::Zugriffstaste(t) != 0;
    // A caption with its own key keeps it; the others are shown trimmed with a free letter.
    texte.push_back(hat ? t : peq::AnzeigeCaption(t));
    eigene.push_back(hat);
    welche.push_back(b);
  }
  const std::vector<std::string> neu = peq::MitZugriffstasten(texte, eigene);
  for (std::size_t k = 0; k < welche.size(); ++k)
    if (!eigene[k] && welche[k]) welche[k]->setText(Q(neu[k]));
}

void StateDialog::After() {
  if (Loaded()) Render();
}

}  // namespace pequi
