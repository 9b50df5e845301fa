#pragma once

#include <QApplication>
#include <QTimer>

#include <functional>

#include <gtest/gtest.h>

namespace quellbrook::testing {

// Runs while the next modal form is open, and then closes the form if it is still open.
template <typename Form>
void WhileFormOpen(std::function<void(Form&)> act) {
    QTimer::singleShot(0, qApp, [act = std::move(act)] {
        QWidget* open = QApplication::activeModalWidget();
        auto* form = qobject_cast<Form*>(open);
        if (form)
            act(*form);
        else
            ADD_FAILURE() << "No such form is open.";
        if (open) open->close();
    });
}

}  // namespace quellbrook::testing
