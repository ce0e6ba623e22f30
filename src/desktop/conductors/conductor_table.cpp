#include "desktop/conductors/conductor_table.h"

#include <QBrush>
#include <QFont>
#include <QGuiApplication>
#include <iterator>
#include <utility>

#include "desktop/frame/widgets.h"

namespace zel {
namespace {

constexpr Text kinds[] = {{"", ""},
                          {"homogen", "homogeneous"},
                          {"Stahlkern", "steel-cored"},
                          {"Rohr", "tube"},
                          {"Verbundkern", "composite core"}};
constexpr Text own = {"eigener", "own"};
constexpr Text damaged = {"beschädigt", "damaged"};
constexpr QColor damaged_on_light(0xB0, 0x20, 0x20);
constexpr QColor damaged_on_dark(0xFF, 0x80, 0x80);

std::string kind_of(const LibraryConductor& conductor, LangId lang) {
    return std::string(kinds[conductor.c.conductor_type_db].in(lang));
}

std::string origin_of(const LibraryConductor& conductor, LangId lang) {
    if (conductor.damage) return std::string(damaged.in(lang));
    return conductor.own ? std::string(own.in(lang)) : conductor.c.Norm_db;
}

struct Column {
    Text head;
    std::string (*text)(const LibraryConductor&, LangId);  // of a text, or
    Entry CalcCase::*number;                               // of a number
};

constexpr Column columns[] = {
    {{"Bezeichnung 1", "Designation 1"},
     [](const LibraryConductor& l, LangId) { return l.c.Bezeichnung1_db; },
     nullptr},
    {{"Bezeichnung 2", "Designation 2"},
     [](const LibraryConductor& l, LangId) { return l.c.Bezeichnung2_db; },
     nullptr},
    {{"Art", "Type"}, kind_of, nullptr},
    {{"mm²", "mm²"}, nullptr, &CalcCase::Seilquerschnitt_db},
    {{"Ø mm", "Ø mm"}, nullptr, &CalcCase::Seildurchmesser_db},
    {{"Ω/km", "Ω/km"}, nullptr, &CalcCase::DCR_20_db},
    {{"A", "A"}, nullptr, &CalcCase::Dauerstrombelastbarkeit_db},
    {{"Norm", "Standard"}, origin_of, nullptr},
};

const Column& column_at(int index) { return columns[static_cast<std::size_t>(index)]; }

}  // namespace

void ConductorTable::show(std::vector<LibraryConductor> conductors) {
    beginResetModel();
    conductors_ = std::move(conductors);
    endResetModel();
}

void ConductorTable::recaption() {
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int ConductorTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(conductors_.size());
}

int ConductorTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(std::size(columns));
}

QVariant ConductorTable::data(const QModelIndex& index, int role) const {
    const Column& column = column_at(index.column());
    const LibraryConductor& shown = conductor(index.row());
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignVCenter |
                                (column.number != nullptr ? Qt::AlignRight : Qt::AlignLeft));
    if (role == Qt::FontRole && shown.own) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    if (role == sort_role && column.number != nullptr) return (shown.c.*column.number).value;
    if (role == Qt::ForegroundRole && shown.damage)
        return QBrush(is_dark(QGuiApplication::palette()) ? damaged_on_dark : damaged_on_light);
    if (role == Qt::ToolTipRole)
        return qt(shown.damage ? shown.damage->reason.in(session_.lang) : shown.source);
    if (role != Qt::DisplayRole && role != sort_role) return {};
    return column.number != nullptr ? qt((shown.c.*column.number).text)
                                    : qt(column.text(shown, session_.lang));
}

QVariant ConductorTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return qt(column_at(section).head, session_.lang);
}

FoundConductors::FoundConductors(ConductorTable& table) : table_(table) { setSourceModel(&table); }

void FoundConductors::find(const std::string& typed) {
    typed_ = typed;
    invalidateFilter();
}

const LibraryConductor& FoundConductors::conductor(const QModelIndex& index) const {
    return table_.conductor(mapToSource(index).row());
}

bool FoundConductors::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const {
    return matches(table_.conductor(row), typed_);
}

bool FoundConductors::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    const QVariant a = table_.data(left, ConductorTable::sort_role);
    const QVariant b = table_.data(right, ConductorTable::sort_role);
    if (a.typeId() == QMetaType::Double) return a.toDouble() < b.toDouble();
    return text_before(a.toString().toStdString(), b.toString().toStdString());
}

}  // namespace zel
