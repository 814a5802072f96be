// SPDX-License-Identifier: MIT
//
// A preferences dialog that is up to date: its model follows the changes that others make, as here does
// `editor-settings set keepVideoAspect off` in another terminal.
//
// The notifier looks at the stores in its own thread and only tells that a value changed; the model then asks the library, as
// ever. It asks once more when watching begins, so that no change is lost between the first look and the first question.
#include "Product.h"

#include <Notifier/Notifier.h>
#include <Settings/Settings.h>
#include <Storage/SqliteStorage.h>

#include <QAbstractListModel>
#include <QCoreApplication>
#include <QVariant>

#include <cstdio>
#include <filesystem>

namespace {

struct Row {
    QString key;
    QVariant (*value)();
};

Row const rows[] = {
    {QStringLiteral("keepVideoAspect"), [] { return QVariant(Settings::keepVideoAspect()); }},
    {QStringLiteral("useGuideLines"), [] { return QVariant(Settings::useGuideLines()); }},
    {QStringLiteral("exportPath"), [] { return QVariant(Settings::exportPath()); }},
};
constexpr int rowCountInAll = sizeof rows / sizeof *rows;

// One row for each preference; a view shows it as it is.
class PreferencesModel : public QAbstractListModel {
public:
    explicit PreferencesModel(std::vector<Notifier::Notifier::Store> const& stores) : m_notifier(stores)
    {
        connect(&m_notifier, &Notifier::Notifier::watching, this, [this] { load(0, rowCountInAll - 1); });
        connect(&m_notifier, &Notifier::Notifier::changed, this, [this](QString const& key) { loadKey(key); });
        for (Row const& row : rows)
            m_notifier.watch(row.key);
    }

    int rowCount(QModelIndex const& parent = {}) const override { return parent.isValid() ? 0 : rowCountInAll; }

    QVariant data(QModelIndex const& index, int role = Qt::DisplayRole) const override
    {
        if (!index.isValid() || role != Qt::DisplayRole)
            return {};
        return rows[index.row()].key + QStringLiteral(": ") + m_values[index.row()].toString();
    }

private:
    void load(int first, int last)
    {
        for (int row = first; row <= last; ++row)
            m_values[row] = rows[row].value();
        Q_EMIT dataChanged(index(first), index(last));
    }

    void loadKey(QString const& key)
    {
        for (int row = 0; row < rowCountInAll; ++row)
            if (rows[row].key == key)
                load(row, row);
    }

    QVariant m_values[rowCountInAll];
    Notifier::Notifier m_notifier;
};

// What a view does.
void print(PreferencesModel const& model, QModelIndex const& first, QModelIndex const& last)
{
    for (int row = first.row(); row <= last.row(); ++row)
        std::puts(model.data(model.index(row)).toString().toUtf8().constData());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
try {
    QCoreApplication const application(argc, argv);
    auto const product = std::make_shared<Product>();
    Lumora::ioPath const resources("resources");
    Settings::init({product, {}, {}, resources});
    auto const folder = std::filesystem::u8path(productDataPath().toStdString());
    auto const own = std::make_shared<Storage::SqliteStorage>(folder / "product-settings.sqlite");
    auto const common = std::make_shared<Storage::SqliteStorage>(folder.parent_path() / "common-settings.sqlite");
    Settings::init({product, common, own, resources});

    PreferencesModel const model({{QStringLiteral("product"), own->file()}, {QStringLiteral("common"), common->file()}});
    QObject::connect(&model, &QAbstractItemModel::dataChanged,
                     [&](QModelIndex const& first, QModelIndex const& last) { print(model, first, last); });
    return QCoreApplication::exec();
} catch (std::exception const& error) {
    std::fprintf(stderr, "08-follow-changes: %s\n", error.what());
    return 1;
}
