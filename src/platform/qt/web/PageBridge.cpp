#include "platform/qt/web/PageBridge.h"

namespace paperkite {

void PageBridge::ready(int generation) {
    if (generation == Generation && Ready) Ready();
}

void PageBridge::typed(int generation, int place, double number, const QString& html) {
    if (generation == Generation && Typed) Typed(place, number, html);
}

void PageBridge::selection(int generation, const QString& json) {
    if (generation == Generation && Selection) Selection(json);
}

void PageBridge::link(int generation, const QString& href) {
    if (generation == Generation && Link) Link(href);
}

void PageBridge::menu(int generation, const QString& json) {
    if (generation == Generation && Menu) Menu(json);
}

void PageBridge::command(int generation, const QString& name) {
    if (generation == Generation && Command) Command(name);
}

void PageBridge::picture(int generation) {
    if (generation == Generation && Picture) Picture();
}

QVariantList PageBridge::misspelt(int generation, const QString& text) {
    return generation == Generation && Misspelt ? Misspelt(text) : QVariantList();
}

} // namespace paperkite
