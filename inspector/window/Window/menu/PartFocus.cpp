// SPDX-License-Identifier: MIT
#include <Window/menu/PartFocus.h>

#include <QApplication>
#include <QWidget>

#include <algorithm>
#include <iterator>

namespace Inspector {

namespace {

// The first widget in `part` that Tab reaches.
QWidget* firstIn(QWidget* part)
{
    QWidget* widget = part;
    do {
        bool const isInside = widget == part || part->isAncestorOf(widget);
        if (isInside && (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() && widget->isVisible())
            return widget;
        widget = widget->nextInFocusChain();
    } while (widget != part);
    return nullptr;
}

} // namespace

void focusPart(std::vector<QWidget*> const& all, int direction)
{
    std::vector<QWidget*> parts;
    std::copy_if(all.begin(), all.end(), std::back_inserter(parts), [](QWidget* part) { return part->isVisible() && firstIn(part); });
    QWidget const* const focus = QApplication::focusWidget();
    auto const hasFocus = [&](QWidget const* part) { return focus && (part == focus || part->isAncestorOf(focus)); };
    auto const here = std::find_if(parts.begin(), parts.end(), hasFocus);
    int const count = static_cast<int>(parts.size());
    int const from = here == parts.end() ? (direction > 0 ? -1 : 0) : static_cast<int>(here - parts.begin());
    firstIn(parts[static_cast<std::size_t>((from + direction + count) % count)])->setFocus(Qt::ShortcutFocusReason);
}

} // namespace Inspector
