#include "views/addfield/DateTip.h"

#include "model/settings/KWLocalizedString.h"
#include "model/settings/KWUserDefaults.h"
#include "views/controls/PlainLabel.h"
#include "views/theme/Metrics.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds shownFor{3};

} // namespace

class DateTip::Frame final : public PopupFrame {
public:
    explicit Frame(QWidget &field) : PopupFrame(&field, Qt::ToolTip)
    {
        setObjectName(u"dateTip"_s);
        setAttribute(Qt::WA_ShowWithoutActivating);
        setAttribute(Qt::WA_DeleteOnClose);
        auto *column = new QVBoxLayout{this};
        column->setContentsMargins(Metrics::gap, Metrics::grid * 2, Metrics::gap, Metrics::grid * 2);
        QLabel *text = makePlainLabel(
            KWLocalizedString("This was read as a date. A click on it makes it plain text again."),
            Fonts::Role::Secondary);
        text->setWordWrap(false);
        column->addWidget(text);
    }

    void showBelow(const QRect &recognised)
    {
        place(recognised.bottomLeft() + QPoint{0, Metrics::grid * 2}, sizeHint());
        show();
    }
};

DateTip::DateTip(QWidget &field, CXClock &clock, KWUserDefaults &defaults)
    : m_field(field), m_clock(clock), m_defaults(defaults)
{
}

DateTip::~DateTip() { dismissDateParsingTips(); }

bool DateTip::isDue() const { return !m_defaults.value(Settings::didShowDateParsingTips); }

void DateTip::show(const QRect &recognised)
{
    dismissDateParsingTips();
    auto *frame = new Frame{m_field};
    frame->showBelow(recognised);
    m_frame = frame;
    m_defaults.set(Settings::didShowDateParsingTips, true);
    m_defaults.synchronise();
    m_end = m_clock.callAfter(shownFor, [this] { dismissDateParsingTips(); });
}

void DateTip::dismissDateParsingTips()
{
    m_end = {};
    delete m_frame;
}
