#pragma once

#include <QObject>
#include <QRect>
#include <string>

#include "platform/settings_store.h"

class QMainWindow;
class QWidget;

namespace zel {

/// Remembers in the user's settings, for each window that has a name, its place and size, its docks
/// as far as the user has opened or closed them, and the columns that he has made wider. A
/// maximised window has no place. A write that fails is not reported.
///
/// A dock has the property `dock_chosen`, true or false, once the user has opened or closed it.
class WindowMemory : public QObject {
public:
    static constexpr const char* dock_chosen = "chosen";

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
