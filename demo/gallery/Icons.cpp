#include "ui/style/Icons.h"

#include "demo/gallery/Section.h"
#include "demo/gallery/Sections.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/PictureBox.h"
#include "ui/platform/Twips.h"

namespace quellbrook::gallery {

namespace {

constexpr int CardWidth = 140, CardHeight = 112;
constexpr int SmallSize = 24, LargeSize = 48, PictureSize = 96;
constexpr int SmallLeft = 17, LargeLeft = 57, IconsCenter = 37, NameTop = 73;

Theme::Color ColorOf(const QString& icon) {
    if (icon == QLatin1String("marked")) return Theme::Color::Link;
    if (icon == QLatin1String("selected")) return Theme::Color::Strong;
    if (icon == QLatin1String("unselected")) return Theme::Color::FieldBorder;
    return Theme::Color::Text;
}

FontIcon* MakeIcon(QWidget* parent, const QString& name, int size) {
    auto* icon = new FontIcon(parent);
    icon->SetIcon(name, size);
    icon->SetForeColor(ColorOf(name));
    return icon;
}

QWidget* MakeCard(QWidget* parent, const QString& name) {
    auto* card = new GroupBox(parent);
    card->SetFramed(true);
    card->setFixedSize(CardWidth, CardHeight);
    for (const auto& [size, left] : {std::pair(SmallSize, SmallLeft), {LargeSize, LargeLeft}}) {
        const int top = IconsCenter - size / 2;
        MakeIcon(card, name, size)->Move(ToTwips(left), ToTwips(top));
    }
    auto* caption = new Label(card);
    caption->SetType(Theme::Type::Subtitle);
    caption->SetForeColor(Theme::Color::GrayText);
    caption->SetCaption(name);
    caption->Move(ToTwips(SmallLeft), ToTwips(NameTop));
    return card;
}

Specimen IconSpecimen(const QString& name, const QString& variant, const std::vector<State>& states) {
    Specimen icon{QStringLiteral("FontIcon"), variant,
                  [=](QWidget* parent) { return MakeIcon(parent, name, SmallSize); }, states};
    icon.empty = [](Control& control) { static_cast<FontIcon&>(control).SetIcon(QString(), SmallSize); };
    return icon;
}

Specimen PictureSpecimen(const QString& variant, const QSize& largest) {
    const auto make = [=](QWidget* parent) {
        auto* picture = new PictureBox(parent);
        picture->setAccessibleName(QObject::tr("A location"));
        const QPixmap pixmap = Icons::Pixmap(QStringLiteral("location"), PictureSize, Qt::black, 1);
        picture->SetImage(pixmap.toImage(), largest);
        return picture;
    };
    return {QStringLiteral("PictureBox"), variant, make};
}

}  // namespace

Section* MakeIcons(QWidget* parent) {
    auto* section =
        new Section(QObject::tr("Icons"),
                    QObject::tr("24 px grid, 1.75 px stroke, round caps and joins. Drawn at 24 px and 48 px."), parent);
    section->AddVariants(
        QStringLiteral("FontIcon"), QString(),
        {IconSpecimen(QStringLiteral("location"), QString(), {State::Normal, State::Disabled, State::Empty}),
         IconSpecimen(QStringLiteral("busy"), QObject::tr("busy: rotates while visible"), {State::Normal})});
    section->AddVariants(QStringLiteral("PictureBox"), QString(),
                         {PictureSpecimen(QObject::tr("its own size, transparent pixels in white"), QSize()),
                          PictureSpecimen(QObject::tr("reduced"), QSize(LargeSize, LargeSize))});
    std::vector<QWidget*> cards;
    for (const QString& name : Icons::Names()) cards.push_back(MakeCard(section, name));
    section->AddWidgets(cards);
    return section;
}

}  // namespace quellbrook::gallery
