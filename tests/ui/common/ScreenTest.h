#pragma once

#include "base/Screen.h"
#include "base/Timer.h"
#include "tests/support/ui/QtTestMain.h"
#include "tests/support/ui/Widgets.h"
#include "ui/common/Dialogs.h"
#include "ui/common/ModalDialog.h"
#include "ui/common/WidgetScreen.h"

#include <QApplication>
#include <QTimer>

#include <functional>
#include <memory>

#include <gtest/gtest.h>

namespace quellbrook::testing {

// The WidgetScreen, with a host's window as the dialog parent.
class ScreenTest : public ::testing::Test {
protected:
    ScreenTest() {
        m_host.setGeometry(100, 50, 640, 480);
        m_host.setObjectName("host");
        ShowActive(m_host);
        GetDialogs().SetParent(std::make_shared<WindowReference>(&m_host));
    }
    ~ScreenTest() override { GetDialogs().SetParent(nullptr); }

    // Runs inside the loop of the next dialog. Afterwards closes the dialog if it is still open.
    template <typename Form = frmModal>
    void WhenOpen(std::function<void(Form&)> act) {
        QTimer::singleShot(0, &m_host, [act = std::move(act)] {
            auto* form = qobject_cast<Form*>(QApplication::activeModalWidget());
            if (!form) {
                ADD_FAILURE() << "No such dialog is open.";
                if (QApplication::activeModalWidget()) QApplication::activeModalWidget()->close();
                return;
            }
            QApplication::setActiveWindow(form);
            act(*form);
            if (form->isVisible()) form->done(-1);
        });
    }

    EnvironmentScope m_environment{WidgetEnvironment()};
    QWidget m_host;
};

}  // namespace quellbrook::testing
