#include "kxpanel/shell/closing_question.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

namespace kxpanel
{

namespace
{

class ClosingQuestion
{
    Q_DECLARE_TR_FUNCTIONS(kxpanel::ClosingQuestion)
};

} // namespace

void askToEndWork(QWidget* window, const std::function<void()>& next)
{
    const QString name = QStringLiteral("endWork");
    const auto* const asked = window->findChild<QMessageBox*>(name);
    if (asked && asked->isVisible())
        return;
    auto* const question = new QMessageBox(window);
    question->setObjectName(name);
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setIcon(QMessageBox::Warning);
    question->setText(ClosingQuestion::tr("A write, a transfer or a search is under way."));
    question->setInformativeText(
        ClosingQuestion::tr("Closing ends it half-way: a part may be stored in the controller."));
    question->addButton(ClosingQuestion::tr("End it and close"), QMessageBox::AcceptRole);
    question->setDefaultButton(question->addButton(QMessageBox::Cancel));
    QObject::connect(question, &QMessageBox::buttonClicked, window,
                     [question, next](QAbstractButton* button) {
                         if (question->buttonRole(button) == QMessageBox::AcceptRole)
                             next();
                     });
    question->open();
}

} // namespace kxpanel
