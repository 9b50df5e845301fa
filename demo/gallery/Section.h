#pragma once

#include "demo/gallery/Specimen.h"

#include <QWidget>

#include <vector>

class QVBoxLayout;

namespace quellbrook::gallery {

// A family of controls: its title, a sentence about it, and rows of cells.
class Section : public QWidget {
    Q_OBJECT

public:
    Section(const QString& title, const QString& sentence, QWidget* parent);

    // A row for one specimen, a cell for each of its states.
    void AddStates(const Specimen& specimen);
    // A row for specimens of one class, each of its cells captioned by variant.
    void AddVariants(const QString& control, const QString& note, const std::vector<Specimen>& specimens);
    // Widgets of fixed size one after the other over the whole width.
    void AddWidgets(const std::vector<QWidget*>& widgets);

private:
    QWidget* AddRow(const QString& control, const QString& note);

    QVBoxLayout* m_rows;
};

}  // namespace quellbrook::gallery
