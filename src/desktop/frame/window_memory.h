#pragma once

#include <QObject>
#include <QRect>
#include <string>

#include "platform/settings_store.h"

class QMainWindow;
class QWidget;

namespace zel {

/// Remembers in the user's settings, for each window that has a name, its place and size, its docks
/// as far as the user has opened or closed them, and the columns that he has made wider. Of
/// a maximised window the place is kept that it has otherwise. A write that fails is not reported.
///
/// A table that fits its columns to what stands in them leaves those of the user alone.
/// A dock has the property `dock_chosen`, true or false, once the user has opened or closed it.
class WindowMemory : public QObject {
public:
    static constexpr const char* dock_chosen = "chosen";
    /// Of the header of a table: its columns are as wide as the user has made them.
    static constexpr const char* widths_by_user = "widths_by_user";

    explicit WindowMemory(SettingsStore& store);

    /// `place` as it fits whole on the screen that it is on, or on the first of `screens`.
    [[nodiscard]] static QRect on_screens(QRect place, const QList<QRect>& screens);

protected:
    bool eventFilter(QObject* of, QEvent* event) override;

private:
    void restore(QWidget& window) const;
    void restore_docks(QMainWindow& window) const;
    void restore_columns(QWidget& window) const;
    void keep(const QWidget& window) const;
    [[nodiscard]] QString read(const QString& key) const;
    void write(const QString& key, const QString& value) const;

    SettingsStore& store_;
};

}  // namespace zel
