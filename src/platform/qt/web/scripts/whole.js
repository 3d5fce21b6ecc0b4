'use strict';
// A page that is written on as a whole: the spans that stand for something in it, and the element
// that the author stands in.

kite.wholeStyle = `
body { outline: none; min-height: calc(100vh - 16px); cursor: text; overflow-wrap: break-word; }
span[id^="metaspan"] { color: var(--kite-text) !important; cursor: default; user-select: all;
    background-color: color-mix(in srgb, var(--kite-highlight) 18%, var(--kite-base)) !important;
    box-shadow: 0 0 0 1px var(--kite-highlight); border-radius: 2px; padding: 0 3px;
    margin: 0 1px; }
table:not([border]) td, table:not([border]) th { outline: 1px dotted var(--kite-lines); }
`;

kite.spanAround = element => element && element.closest('span[id^="metaspan"]');

kite.currentElement = function () {
    const selection = getSelection();
    if (!selection.rangeCount || !kite.selectedPlace()) return null;
    const range = selection.getRangeAt(0);
    const only = range.startContainer === range.endContainer
        && range.endOffset === range.startOffset + 1
        && range.startContainer.childNodes[range.startOffset];
    if (only && only.nodeType === Node.ELEMENT_NODE) return kite.spanAround(only) || only;
    const node = range.commonAncestorContainer;
    const element = node.nodeType === Node.ELEMENT_NODE ? node : node.parentElement;
    return kite.spanAround(element) || kite.spanIn(range) || element;
};

// The one span that a selection holds with nothing else.
kite.spanIn = function (range) {
    if (range.collapsed || range.toString().length > 4000) return null;
    const first = kite.spanAround(kite.elementFrom(range.startContainer, range.startOffset, 0));
    const last = kite.spanAround(kite.elementFrom(range.endContainer, range.endOffset, -1));
    const span = first || last;
    return span && range.toString() === span.textContent ? span : null;
};

kite.elementFrom = function (node, offset, step) {
    if (node.nodeType === Node.ELEMENT_NODE) node = node.childNodes[offset + step] || node;
    else if (step === 0 && offset === node.length) node = node.nextSibling || node;
    else if (step < 0 && offset === 0) node = node.previousSibling || node;
    return node.nodeType === Node.ELEMENT_NODE ? node : node.parentElement;
};

kite.pathOf = function (element) {
    const path = [];
    for (; element; element = element.parentElement) path.push([element.tagName, element.id]);
    return path;
};

kite.elementEvent = function (id, event) {
    const source = event.target.nodeType === Node.ELEMENT_NODE ? event.target : null;
    kite.target = kite.spanAround(source) || source;
    return { event: id, x: event.clientX, y: event.clientY, path: kite.pathOf(source),
        current: kite.pathOf(kite.target) };
};

kite.doubleClicked = function (event) {
    kite.bridge.element(kite.generation, JSON.stringify(kite.elementEvent(-601, event)));
};

// Writes the element that the author stands in, as a step that can be taken back.
kite.actions.replaceelement = function (html) {
    const element = kite.target && kite.target.isConnected ? kite.target : kite.currentElement();
    if (!element || element === document.body) return;
    const range = document.createRange();
    range.selectNode(element);
    getSelection().removeAllRanges();
    getSelection().addRange(range);
    if (html) kite.insert(html);
    else kite.command('delete');
    kite.target = null;
};

// What is copied within pages that are written on as a whole stays as it stands, spans included.
kite.ownFormat = 'application/x-paperkite-layout';

kite.copied = function (event) {
    const selection = getSelection();
    if (!selection.rangeCount || selection.isCollapsed || !kite.selectedPlace()) return;
    const range = selection.getRangeAt(0).cloneRange();
    const span = kite.spanAround(kite.currentElement());
    if (span) range.selectNode(span);
    const holder = document.createElement('div');
    holder.append(range.cloneContents());
    event.clipboardData.setData(kite.ownFormat, holder.innerHTML);
    event.clipboardData.setData('text/html', holder.innerHTML);
    event.clipboardData.setData('text/plain', selection.toString());
    event.preventDefault();
    if (event.type !== 'cut') return;
    selection.removeAllRanges();
    selection.addRange(range);
    kite.command('delete');
};
