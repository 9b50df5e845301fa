#pragma once

#include "base/Object.h"
#include "base/TaggedValue.h"

#include <QDialog>
#include <QPointer>

#include <memory>

namespace quellbrook {

class StorageLocation;
struct FinalDispositionData;

// Wraps a window of the host as an Object. Does not own the window.
class WindowReference : public Object {
public:
    explicit WindowReference(QWidget* window) : m_window(window) {}
    std::string TypeName() const override { return "Window"; }
    QWidget* Window() const { return m_window; }  // null once it has been destroyed

private:
    QPointer<QWidget> m_window;
};

// A top-level form of the module, counted while it exists (Screen::OpenFormCount). OnLoad runs once, before the form's
// size is read.
class ModuleForm : public QDialog {
    Q_OBJECT

public:
    explicit ModuleForm(QWidget* parent = nullptr);
    ~ModuleForm() override;

    // Runs OnLoad on the first call.
    void EnsureLoaded();
    static int Count();

protected:
    // Builds and sizes the form.
    virtual void OnLoad() {}
    // Runs for the close control, for Esc, and when the window manager closes the form. If CancelsOnEscape is false,
    // Esc does nothing.
    virtual void OnCancel() { done(0); }
    virtual bool CancelsOnEscape() const { return true; }

    void reject() override;
    void closeEvent(QCloseEvent* event) override;

private:
    bool m_loaded = false;
};

// Keeps the parent window of all dialogs.
class Dialogs {
public:
    void SetParent(ObjectRef parent);
    QWidget* GetParent() const;  // null if none is set or it was destroyed

    // Loads the form, centers it over the parent window and shows it modally. Returns an empty value after it closed.
    // Error 91 "No dialog parent has been set." without a parent.
    TaggedValue ShowForm(ModuleForm& form);

    // Show the location editor. Error 5 for null.
    bool EditLocation(const std::shared_ptr<StorageLocation>& location);  // whether the user saved
    // The new location, or null if the user canceled.
    std::shared_ptr<StorageLocation> AddLocation(const std::shared_ptr<StorageLocation>& parent);
    // Asks for the final disposition of evidence that will be disposed of. Null if the user canceled.
    std::shared_ptr<FinalDispositionData> GetFinalDisposition();

private:
    std::shared_ptr<WindowReference> m_parent;
};

Dialogs& GetDialogs();
void ShowFormCentered(ModuleForm& form);

}  // namespace quellbrook
