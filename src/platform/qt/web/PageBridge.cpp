#include "platform/qt/web/PageBridge.h"

namespace paperkite {

void PageBridge::ready(int generation) {
    if (generation == Generation && Ready) Ready();
}

void PageBridge::typed(int generation, int place, double number, const QString& html) {
    if (generation == Generation && Typed) Typed(place, number, html);
}

void PageBridge::touched(int generation, bool canUndo) {
    if (generation == Generation && Touched) Touched(canUndo);
}

void PageBridge::element(int generation, const QString& json) {
    Later(generation, [this, json] {
        if (Element) Element(json);
    });
}

void PageBridge::selection(int generation, const QString& json) {
    if (generation == Generation && Selection) Selection(json);
}

void PageBridge::link(int generation, const QString& href) {
    Later(generation, [this, href] {
        if (Link) Link(href);
    });
}

void PageBridge::menu(int generation, const QString& json) {
    Later(generation, [this, json] {
        if (Menu) Menu(json);
    });
}

void PageBridge::command(int generation, const QString& name) {
    Later(generation, [this, name] {
        if (Command) Command(name);
    });
}

void PageBridge::picture(int generation) {
    Later(generation, [this] {
        if (Picture) Picture();
    });
}

void PageBridge::copied(int generation, const QString& layout, const QString& html) {
    if (generation == Generation && Copied) Copied(layout, html);
}

void PageBridge::pasted(int generation, const QString& layout, const QString& html) {
    Later(generation, [this, layout, html] {
        if (Pasted) Pasted(layout, html);
    });
}

QVariantList PageBridge::misspelt(int generation, const QString& text) {
    return generation == Generation && Misspelt ? Misspelt(text) : QVariantList();
}

void PageBridge::Later(int generation, const std::function<void()>& action) {
    QMetaObject::invokeMethod(
        this,
        [this, generation, action] {
            if (generation == Generation) action();
        },
        Qt::QueuedConnection);
}

} // namespace paperkite
