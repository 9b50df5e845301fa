#pragma once

#include <QVBoxLayout>

class QFrame;
class QWidget;

namespace quellbrook {

// What the host's own pages are divided by.

QFrame* MakeRule(QWidget* parent);
// A caption in grey capitals over a rule.
void AddSection(QVBoxLayout& column, const QString& caption, QWidget* parent);

}  // namespace quellbrook
