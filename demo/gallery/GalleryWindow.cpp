#include "demo/gallery/GalleryWindow.h"

#include "base/Error.h"
#include "component/Quellbrook.h"
#include "demo/gallery/Cell.h"
#include "demo/gallery/Section.h"
#include "demo/gallery/Sections.h"
#include "demo/gallery/Stage.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatTitleBar.h"
#include "ui/controls/Label.h"
#include "ui/platform/Guard.h"
#include "ui/style/Theme.h"

#include <QApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

namespace quellbrook::gallery {

namespace {

constexpr int PageMargin = 32, SectionGap = 40;
constexpr int SwitchWidth = 80, SwitchHeight = 28;
constexpr int PictureWidth = 1280;

}  // namespace

GalleryWindow::GalleryWindow() : m_scroll(new QScrollArea(this)) {
    setObjectName(QStringLiteral("gallery"));
    setWindowTitle(tr("Quellbrook - Controls"));
    resize(1280, 800);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeStrip());
    column->addWidget(m_scroll, 1);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setWidget(MakePage());
    RetakePictures();
}

QWidget* GalleryWindow::MakeStrip() {
    auto* strip = new FlatTitleBar(this);
    strip->setObjectName(QStringLiteral("strip"));
    strip->SetCaption(tr("Controls"));
    strip->setFixedHeight(Theme::TitleBarHeight);
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(0, 0, Theme::Margin, 0);
    row->addStretch(1);
    m_switch = new FlatButton(strip);
    m_switch->setObjectName(QStringLiteral("switchPalette"));
    m_switch->SetInverted(true);
    m_switch->setFixedSize(SwitchWidth, SwitchHeight);
    m_switch->SetCaption(IsDark() ? tr("Light") : tr("Dark"));
    row->addWidget(m_switch);
    connect(m_switch, &FlatButton::Clicked, this, [this] { Guard([this] { SetDark(!IsDark()); }); });
    return strip;
}

QWidget* GalleryWindow::MakePage() {
    auto* page = new QWidget(this);
    page->setObjectName(QStringLiteral("page"));
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(PageMargin, PageMargin, PageMargin, PageMargin);
    column->setSpacing(SectionGap);
    auto* sentence = new Label(page);
    sentence->SetType(Theme::Type::Subtitle);
    sentence->SetForeColor(Theme::Color::GrayText);
    sentence->SetCaption(
        tr("Hover, pressed and focused are pictures of a control, taken while it had the pointer or "
           "the focus; everything else is live."));
    column->addWidget(sentence);
    for (Section* section : MakeSections(page)) column->addWidget(section);
    column->addStretch(1);
    return page;
}

bool GalleryWindow::IsDark() const { return Theme::IsDark(); }

void GalleryWindow::SetDark(bool dark) {
    InstallTheme(dark);
    // Qt queues the change of palette, but the pictures are taken now.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationPaletteChange);
    m_switch->SetCaption(dark ? tr("Light") : tr("Dark"));
    RetakePictures();
}

void GalleryWindow::RetakePictures() {
    Stage stage;
    for (Cell* cell : findChildren<Cell*>()) cell->Retake(stage);
}

void GalleryWindow::WritePictures(const QString& directory) {
    if (!QDir().mkpath(directory))
        Raise(ErrorNumber::General, "GalleryWindow.WritePictures",
              tr("The directory %1 can't be created.").arg(directory).toStdString());
    setAttribute(Qt::WA_DontShowOnScreen);
    show();
    for (const bool dark : {false, true}) {
        SetDark(dark);
        resize(PictureWidth, Theme::TitleBarHeight + m_scroll->widget()->heightForWidth(PictureWidth));
        const QString file = QDir(directory).filePath(dark ? QStringLiteral("dark.png") : QStringLiteral("light.png"));
        if (!grab().save(file))
            Raise(ErrorNumber::General, "GalleryWindow.WritePictures",
                  tr("The picture %1 can't be written.").arg(file).toStdString());
    }
}

int RunGallery(const std::optional<std::string>& pictureDirectory) {
    GalleryWindow window;
    if (pictureDirectory) {
        window.WritePictures(QString::fromStdString(*pictureDirectory));
        return 0;
    }
    window.show();
    return QApplication::exec();
}

}  // namespace quellbrook::gallery
