#include "model/store/FoldedName.h"

QString foldedName(const QString &name)
{
    QString folded = name.normalized(QString::NormalizationForm_KC).toCaseFolded();
    folded.removeIf([](QChar each) { return each.isSpace(); });
    return folded;
}
