#pragma once

#include "base/Object.h"
#include "base/TaggedValue.h"

#include <QDialog>
#include <QPointer>

#include <memory>

namespace quellbrook {

// A window of the host as an object that can travel through the module. Does not own it.
class WindowReference : public Object {
public:
    explicit WindowReference(QWidget* window) : m_window(window) {}
    std::string TypeName() const override { return "Window"; }
    QWidget* Window() const { return m_window; }  // null once it has been destroyed

private:
    QPointer<QWidget> m_window;
};

// A top-level form of the module, counted as long as it lives (Screen::OpenFormCount). Load() runs once, before
// anything asks for its size.
class ModuleForm : public QDialog {
    Q_OBJECT

public:
    explicit ModuleForm(QWidget* parent = nullptr);
    ~ModuleForm() override;

    // Runs OnLoad at the first call.
    void EnsureLoaded();
    static int Count();

protected:
    // Builds and sizes the form.
    virtual void OnLoad() {}
    // What the close control does; also run for Esc and for closing by the window manager. False: Esc does nothing.
    virtual void OnCancel() { done(0); }
    virtual bool CancelsOnEscape() const { return true; }

    void reject() override;
    void closeEvent(QCloseEvent* event) override;

private:
    bool m_loaded = false;
};

// Owns the one window over which every dialog is shown.
class Dialogs {
public:
    void SetParent(ObjectRef parent);
    QWidget* GetParent() const;  // null while none is set, and once it has been destroyed

    // Loads the form, centres it over the parent window and shows it modally; returns when it has closed. Always empty.
    // Error 91 "No dialog parent has been set." without a parent.
    TaggedValue ShowForm(ModuleForm& form);

private:
    std::shared_ptr<WindowReference> m_parent;
};

Dialogs& GetDialogs();
void ShowFormCentered(ModuleForm& form);

}  // namespace quellbrook
