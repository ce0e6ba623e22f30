#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "desktop/frame/widgets.h"

namespace zel {

/// The captions of windows: who makes a widget enters here what stands on it and where, and a
/// change of the language walks the list, in the order of the entries. Each entry gives its widget
/// back, so that a widget can be made and entered at once. Widgets must live as long as the list is
/// shown.
class Captions {
public:
    template <class Widget>
    Widget* text(Widget* widget, const Text& text) {
        return enter(widget, &Widget::setText, text);
    }
    /// Of a group or a menu.
    template <class Widget>
    Widget* title(Widget* widget, const Text& text) {
        return enter(widget, &Widget::setTitle, text);
    }
    template <class Widget>
    Widget* window_title(Widget* widget, const Text& text) {
        return enter(widget, &Widget::setWindowTitle, text);
    }
    template <class Widget>
    Widget* placeholder(Widget* widget, const Text& text) {
        return enter(widget, &Widget::setPlaceholderText, text);
    }
    template <class Widget>
    Widget* tool_tip(Widget* widget, const Text& text) {
        return enter(widget, &Widget::setToolTip, text);
    }
    template <class Widget>
    Widget* accessible_name(Widget* widget, const Text& text) {
        return enter(widget, &Widget::setAccessibleName, text);
    }
    /// What follows from the language and from more than that.
    void computed(std::function<void(LangId)> show) { entries_.push_back(std::move(show)); }

    void show(LangId lang) const {
        for (const auto& entry : entries_) entry(lang);
    }

private:
    template <class Widget, class Base>
    Widget* enter(Widget* widget, void (Base::*place)(const QString&), const Text& text) {
        computed([widget, place, text](LangId lang) { (widget->*place)(qt(text, lang)); });
        return widget;
    }

    std::vector<std::function<void(LangId)>> entries_;
};

}  // namespace zel
