#include "shell/views/kmgriddialog.h"

#include "render/KMGridNode.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>

namespace {

constexpr double largestSpace = 10000.0;

} // namespace

kmgriddialog::kmgriddialog(const KMGridNode &grid, QWidget *parent)
    : QDialog(parent)
    , m_grid(grid)
    , m_rows(new QSpinBox)
    , m_space(new QDoubleSpinBox)
{
    setObjectName(QStringLiteral("kmgriddialog"));
    setWindowTitle(tr("Grid Settings"));
    auto *form = new QFormLayout(this);
    m_rows->setObjectName(QStringLiteral("gridRow"));
    m_rows->setRange(1, KMGridNode::MostCells);
    m_rows->setValue(grid.cells());
    m_space->setObjectName(QStringLiteral("gridSpace"));
    m_space->setRange(1.0, largestSpace);
    m_space->setValue(double(grid.cellSize()));
    m_space->setEnabled(!grid.isUVMode());
    form->addRow(tr("grid row"), m_rows);
    form->addRow(tr("grid Space"), m_space);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
}

int kmgriddialog::rows() const
{
    return m_rows->value();
}

float kmgriddialog::space() const
{
    return m_grid.isUVMode() ? m_grid.cellSize() : float(int(m_space->value()));
}
