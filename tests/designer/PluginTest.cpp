#include "tests/support/ui/Widgets.h"

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QDirIterator>
#include <QIcon>
#include <QPluginLoader>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <map>
#include <memory>

namespace quellbrook::testing {
namespace {

const QString root = QStringLiteral(QUELLBROOK_SOURCE_DIR "/");

// The classes of ui/controls that a form can contain, without their base classes.
QStringList ControlClasses() {
    const QRegularExpression declaration(
        QStringLiteral("class (\\w+) : public (Control|Pressable|FlatDropdown|View) "));
    QStringList names;
    QDirIterator files(root + "ui/controls", {"*.h"}, QDir::Files);
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        auto found = declaration.globalMatch(QString::fromUtf8(file.readAll()));
        while (found.hasNext()) names.push_back("quellbrook::" + found.next().captured(1));
    }
    for (const char* base : {"View", "Pressable"}) names.removeAll(QStringLiteral("quellbrook::%1").arg(base));
    return names;
}

// The plugin as Qt Designer loads it.
class PluginTest : public ::testing::Test {
protected:
    PluginTest() : m_loader(QStringLiteral(QUELLBROOK_PLUGIN)) {
        const auto* collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(m_loader.instance());
        if (!collection) {
            ADD_FAILURE() << m_loader.errorString().toStdString();
            return;
        }
        for (QDesignerCustomWidgetInterface* control : collection->customWidgets()) {
            EXPECT_EQ(m_controls.count(control->name()), 0U) << control->name().toStdString();
            m_controls[control->name()] = control;
        }
    }

    QPluginLoader m_loader;
    std::map<QString, QDesignerCustomWidgetInterface*> m_controls;
};

TEST_F(PluginTest, OffersEachControlAndTheComponentOnce) {
    QStringList expected = ControlClasses();
    EXPECT_GT(expected.size(), 15);
    expected += {"quellbrook::EvidenceUI", "quellbrook::RelatedIncidentStrip"};
    expected.sort();
    QStringList offered;
    for (const auto& [name, control] : m_controls) offered.push_back(name);
    EXPECT_EQ(offered.join("\n").toStdString(), expected.join("\n").toStdString());
}

TEST_F(PluginTest, DescribesEachControl) {
    for (const auto& [name, control] : m_controls) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(control->group(), "Quellbrook");
        EXPECT_NE(control->toolTip(), "");
        QFile header(root + control->includeFile());
        ASSERT_TRUE(header.open(QIODevice::ReadOnly)) << control->includeFile().toStdString();
        EXPECT_TRUE(header.readAll().contains("class " + name.section("::", -1).toLatin1() + " : "));
        const QImage icon = control->icon().pixmap(24, 24).toImage();
        EXPECT_NE(icon, QImage(icon.size(), icon.format())) << "no icon";
    }
    EXPECT_TRUE(m_controls["quellbrook::GroupBox"]->isContainer());
    EXPECT_FALSE(m_controls["quellbrook::FlatButton"]->isContainer());
}

TEST_F(PluginTest, ANewControlHasAClassANameAndASensibleSize) {
    for (const auto& [name, control] : m_controls) {
        SCOPED_TRACE(name.toStdString());
        QXmlStreamReader form(control->domXml());
        std::map<QString, int> numbers;
        while (!form.atEnd()) {
            if (form.readNext() != QXmlStreamReader::StartElement) continue;
            if (form.name() == QLatin1String("widget")) {
                EXPECT_EQ(form.attributes().value("class"), name);
                EXPECT_TRUE(form.attributes().value("name").at(0).isLower());
            }
            if (form.name() == QLatin1String("width") || form.name() == QLatin1String("height"))
                numbers[form.name().toString()] = form.readElementText().toInt();
        }
        EXPECT_FALSE(form.hasError()) << form.errorString().toStdString();
        EXPECT_GE(numbers["width"], 16);
        EXPECT_GE(numbers["height"], 1);
        EXPECT_LE(numbers["width"], 1000);
    }
}

// The plugin has no database, so that a control that read one would fail.
TEST_F(PluginTest, EachControlIsCreatedAndPaintsWithoutADatabase) {
    for (const auto& [name, control] : m_controls) {
        SCOPED_TRACE(name.toStdString());
        QWidget form;
        form.resize(1000, 700);
        QWidget* widget = control->createWidget(&form);
        ASSERT_NE(widget, nullptr);
        EXPECT_EQ(widget->metaObject()->className(), name.toStdString());
        EXPECT_EQ(widget->parentWidget(), &form);
        if (widget->metaObject()->indexOfProperty("Caption") >= 0) widget->setProperty("Caption", "Sample");
        widget->setGeometry(20, 20, 400, 300);
        ShowActive(form);
        ServeEvents();
        EXPECT_FALSE(Grab(form).isNull());
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "an error is reported";
    }
}

TEST_F(PluginTest, TheIncidentStripShowsSamples) {
    QWidget form;
    QWidget* strip = m_controls["quellbrook::RelatedIncidentStrip"]->createWidget(&form);
    QStringList shown;
    for (const QWidget* label : strip->findChildren<QWidget*>("lblIncidentId"))
        shown.push_back(label->property("Caption").toString());
    EXPECT_EQ(shown, QStringList({"2016-0042", "2015-0203", "2011-6831"}));
}

}  // namespace
}  // namespace quellbrook::testing
