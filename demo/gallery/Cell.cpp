#include "demo/gallery/Cell.h"

#include "demo/gallery/Stage.h"
#include "ui/controls/Label.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"

#include <QPainter>

#include <algorithm>

namespace quellbrook::gallery {

Cell::Cell(const Specimen& specimen, State state, const QString& caption, int leastWidth, QWidget* parent)
    : QWidget(parent), m_specimen(specimen), m_state(state), m_leastWidth(leastWidth), m_caption(new Label(this)) {
    m_caption->SetType(Theme::Type::Hint);
    m_caption->SetForeColor(Theme::Color::GrayText);
    m_caption->SetCaption(caption.isEmpty() ? NameOf(state) : caption);
    if (IsFleeting(state)) return;
    m_live = m_specimen.make(this);
    m_live->Move(ToTwips(Stage::Margin), ToTwips(Stage::Margin));
    m_live->setObjectName(NameOf(state));
    Apply(m_specimen, state, *m_live);
    Fit(m_live->size() + QSize(2 * Stage::Margin, 2 * Stage::Margin));
}

QString Cell::Caption() const { return m_caption->Caption(); }

void Cell::Retake(Stage& stage) {
    if (m_live) return;
    m_picture = stage.Picture(m_specimen, m_state);
    const bool asNormal = m_picture.toImage() == stage.Picture(m_specimen, State::Normal).toImage();
    m_caption->SetCaption(NameOf(m_state) + (asNormal ? tr(", picture: as normal") : tr(", picture")));
    setAccessibleName(m_specimen.control + QLatin1Char(' ') + m_specimen.variant);
    Fit(m_picture.deviceIndependentSize().toSize());
    update();
}

void Cell::Fit(const QSize& content) {
    m_caption->Move(ToTwips(Stage::Margin), ToTwips(content.height()));
    setFixedSize(std::max({m_leastWidth, content.width(), m_caption->geometry().right() + 1 + Stage::Margin}),
                 m_caption->geometry().bottom() + 1);
}

void Cell::paintEvent(QPaintEvent*) {
    Guard([this] {
        if (!m_picture.isNull()) QPainter(this).drawPixmap(0, 0, m_picture);
    });
}

}  // namespace quellbrook::gallery
