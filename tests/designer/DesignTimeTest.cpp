#include "database/Connection.h"
#include "host/HostServices.h"
#include "tests/designer/ControlLoader.h"
#include "tests/support/ModelTest.h"
#include "tests/support/ui/Widgets.h"
#include "ui/common/RelatedIncidentStrip.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/Label.h"
#include "ui/controls/View.h"
#include "ui/platform/Guard.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QTreeWidget>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

// A database that must not be queried.
class UntouchedEngine : public Engine {
public:
    std::unique_ptr<Connection> Open() override {
        ADD_FAILURE() << "A control queried the database.";
        Raise(ErrorNumber::General, "UntouchedEngine.Open", "The database was asked at design time.");
    }
    bool WasCommitted(const std::string&) override { return false; }
    const Dialect& GetDialect() const override { return m_dialect; }

private:
    Dialect m_dialect;
};

class DesignTime : public ModelTest {
protected:
    DesignTime() {
        HostServices::Current().SetEngine(std::make_shared<UntouchedEngine>());
        m_environment->reportUnexpected = [](const Error& error) {
            ADD_FAILURE() << error.Source() << ": " << error.Description();
        };
        SetInsideDesigner(true);
    }
    ~DesignTime() override {
        ServeEvents();
        SetInsideDesigner(false);
        HostServices::Current().SetEngine(nullptr);
    }

    // Loads the form, shows the control, resizes it and deletes it.
    static void Exercise(QWidget& form) {
        ShowActive(form);
        auto* control = Find<Control>(form, "control");
        Grab(form);
        control->resize(90, 400);
        ServeEvents();
        Grab(form);
        form.hide();
        ServeEvents();
    }

    ControlLoader m_loader;
};

TEST_F(DesignTime, ControlsLoadWithoutReadingDataOrReportingErrors) {
    for (const QString& className : m_loader.Classes()) {
        SCOPED_TRACE(className.toStdString());
        const auto form = m_loader.LoadForm(className);
        ASSERT_NE(form, nullptr);
        auto* control = Find<Control>(*form, "control");
        ASSERT_NE(control, nullptr);
        EXPECT_EQ(control->metaObject()->className(), "quellbrook::" + className.toStdString());
        EXPECT_EQ(control->pos(), QPoint(40, 30));
        Exercise(*form);
    }
}

TEST_F(DesignTime, EveryControlIsTested) {
    const QRegularExpression declaration(QStringLiteral("explicit (\\w+)\\(QWidget\\* parent = nullptr\\)"));
    const QRegularExpression base(QStringLiteral("class (\\w+) : public (Control|View|Label)\\b"));
    QStringList missing;
    QDirIterator files(QStringLiteral(QUELLBROOK_SOURCE_DIR "/ui"), {"*.h"}, QDir::Files, QDirIterator::Subdirectories);
    int found = 0;
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        auto classes = base.globalMatch(text);
        while (classes.hasNext()) {
            const QString name = classes.next().captured(1);
            if (!text.contains(QStringLiteral("explicit %1(QWidget* parent = nullptr)").arg(name))) continue;
            ++found;
            if (!m_loader.Classes().contains(name)) missing.push_back(name);
        }
    }
    EXPECT_GT(found, 25);
    // View is only a base class, and a font label exists only inside the strip.
    missing.removeAll("View");
    missing.removeAll("FontLabel");
    EXPECT_EQ(missing.join(", ").toStdString(), "");
}

TEST_F(DesignTime, PropertiesOfTheFormReachTheControl) {
    const auto form = m_loader.LoadForm("FlatButton",
                                        "<property name=\"Tag\"><string>7</string></property>"
                                        "<property name=\"Index\"><number>3</number></property>"
                                        "<property name=\"enabled\"><bool>false</bool></property>");
    const auto* control = Find<Control>(*form, "control");
    EXPECT_EQ(control->Tag(), "7");
    EXPECT_EQ(control->Index(), 3);
    EXPECT_FALSE(control->isEnabled());
    EXPECT_EQ(control->Left(), 600);
    EXPECT_EQ(control->Width(), 4800);
}

TEST_F(DesignTime, TheIncidentStripShowsItsSamples) {
    const auto form = m_loader.LoadForm("RelatedIncidentStrip");
    QStringList shown;
    for (const Label* label : FindAll<Label>(*form, "lblIncidentId")) shown.push_back(label->Caption());
    EXPECT_EQ(shown, QStringList({"2016-0042", "2015-0203", "2011-6831"}));
}

TEST_F(DesignTime, ListsShowTheirNames) {
    for (const char* className : {"SearchResultList", "TrackingList", "LocationView"}) {
        const auto form = m_loader.LoadForm(className);
        ShowActive(*form);
        const auto* name = Find<Label>(*form, "lblPlaceholder");
        ASSERT_NE(name, nullptr) << className;
        EXPECT_TRUE(name->isVisible()) << className;
        EXPECT_EQ(name->Caption().toStdString(), "control") << className;
    }
}

TEST_F(DesignTime, TheTreeShowsNoLocations) {
    const auto form = m_loader.LoadForm("LocationTree");
    ShowActive(*form);
    EXPECT_EQ(Find<QTreeWidget>(*form, "TreeView")->topLevelItemCount(), 0);
}

TEST_F(DesignTime, TheShellShowsItsPartsAndStartsNothing) {
    const auto form = m_loader.LoadForm("EvidenceUI");
    ShowActive(*form);
    for (const char* name : {"TitleBar", "content", "infobar", "toastMessage", "viewHolder"})
        EXPECT_NE(Find<Control>(*form, name), nullptr);
    EXPECT_FALSE(Find<Control>(*form, "explorer")->isVisible());
}

}  // namespace
}  // namespace quellbrook::testing
