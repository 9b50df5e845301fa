#pragma once

#include <QUiLoader>

#include <functional>
#include <map>
#include <memory>

namespace quellbrook::testing {

// Loads designer forms with the component's controls by class name.
class ControlLoader : public QUiLoader {
public:
    ControlLoader();

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override;
    // The known classes, without their namespace.
    QStringList Classes() const;

    // A form with a control of this class, named "control", at 40,30 with 320 x 200 pixels. `properties` is XML for
    // further properties.
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
