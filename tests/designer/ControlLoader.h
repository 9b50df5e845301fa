#pragma once

#include <QUiLoader>

#include <functional>
#include <map>
#include <memory>

namespace quellbrook::testing {

// Loads forms of the form designer that hold the module's controls, by the names of their classes.
class ControlLoader : public QUiLoader {
public:
    ControlLoader();

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override;
    // The classes that it knows, without their namespace.
    QStringList Classes() const;

    // A form with one control of this class in it, named "control", at 40,30 and 320 x 200 pixels; "properties" are
    // further ones of the control, as a form file writes them.
    std::unique_ptr<QWidget> LoadForm(const QString& className, const QString& properties = QString());

private:
    using Maker = std::function<QWidget*(QWidget*)>;
    template <typename T>
    void Add(const char* className) {
        m_makers[QString::fromLatin1(className)] = [](QWidget* parent) { return new T(parent); };
    }

    std::map<QString, Maker> m_makers;
};

}  // namespace quellbrook::testing
