#include "views/addfield/FieldHelp.h"

#include "model/settings/KWLocalizedString.h"
#include "views/addfield/TitleLessons.h"
#include "views/controls/PlainLabel.h"
#include "views/theme/Metrics.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>

using namespace Qt::StringLiterals;

void FieldHelp::showBelow(QWidget &field)
{
    auto *help = new FieldHelp{field};
    help->place(field.mapToGlobal(QPoint{0, field.height()}), help->sizeHint());
    help->show();
    help->setFocus(Qt::PopupFocusReason);
}

FieldHelp::FieldHelp(QWidget &field) : PopupFrame(&field)
{
    setObjectName(u"fieldHelp"_s);
    setAccessibleName(KWLocalizedString("What you can type"));
    setFocusPolicy(Qt::StrongFocus);
    auto *grid = new QGridLayout{this};
    grid->setContentsMargins(Metrics::sideMargin, Metrics::gap, Metrics::sideMargin, Metrics::gap);
    grid->setHorizontalSpacing(Metrics::margin);
    grid->setVerticalSpacing(Metrics::grid);
    int row = 0;
    QStringList said;
    for (const TitleLesson &each : titleLessons()) {
        QLabel *example = makePlainLabel(each.example, Fonts::Role::BodyStrong);
        QLabel *meaning = makePlainLabel(each.meaning, Fonts::Role::Body);
        example->setWordWrap(false);
        meaning->setWordWrap(false);
        grid->addWidget(example, row, 0);
        grid->addWidget(meaning, row++, 1);
        said.append(each.example + u": "_s + each.meaning);
    }
    grid->addWidget(makePlainLabel(KWLocalizedString("A click on a mark, or Backspace right behind it, makes "
                                                     "it plain text again."),
                                   Fonts::Role::Secondary, QPalette::PlaceholderText),
                    row, 0, 1, 2);
    setAccessibleDescription(said.join(u". "_s));
}

void FieldHelp::keyPressEvent(QKeyEvent *) { close(); }
