'use strict';
// A page that is written on as a whole: the spans that stand for something in it, and the element
// that the author stands in.

kite.wholeStyle = `
body { outline: none; min-height: calc(100vh - 16px); cursor: text; overflow-wrap: break-word; }
span[id^="metaspan"] { color: var(--kite-text) !important; cursor: default;
    background-color: var(--kite-tint) !important;
    box-shadow: 0 0 0 1px var(--kite-highlight); border-radius: 2px; padding: 0 3px;
    margin: 2px 1px; line-height: 1.3; display: inline-block; max-width: 100%; }
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

// What a span shows may be more than a parser takes where the span stands, such as a paragraph within
// another one. It comes in an attribute, and is left out of what is read: the span says enough.
kite.fillSpans = function (root) {
    for (const span of root.querySelectorAll('span[data-kite-inner]')) {
        span.innerHTML = span.getAttribute('data-kite-inner');
        span.removeAttribute('data-kite-inner');
    }
};

kite.emptyLargeSpans = function (root) {
    for (const span of root.querySelectorAll('span[id^="metaspanstart"]'))
        if ([...span.children].some(child => child.tagName !== 'B')) span.replaceChildren();
};

// The nodes of a text in which spans stand, of which one alone may hold anything.
kite.nodesOf = function (html) {
    const template = document.createElement('template');
    const tag = /^<span id="metaspanstart\d+"[^>]*>/.exec(html);
    const isOne = tag && html.endsWith('</span>') && !html.includes('data-kite-inner=')
        && html.lastIndexOf('id="metaspan') < tag[0].length;
    template.innerHTML = isOne ? tag[0] + '</span>' : html;
    if (isOne) template.content.firstElementChild.innerHTML = html.slice(tag[0].length, -7);
    kite.fillSpans(template.content);
    return [...template.content.childNodes];
};

// A click selects the span; one that is selected can be dragged to another place.
kite.pressed = function (event) {
    const span = event.button === 0 && kite.spanAround(event.target);
    if (!span || kite.spanAround(kite.currentElement()) === span) return;
    event.preventDefault();
    document.body.focus({ preventScroll: true });
    const range = document.createRange();
    range.selectNode(span);
    getSelection().removeAllRanges();
    getSelection().addRange(range);
};

kite.doubleClicked = function (event) {
    kite.bridge.element(kite.generation, JSON.stringify(kite.elementEvent(-601, event)));
};

// The engine takes spans apart when they are put in, so that they are put in past it. A character
// that no reader sees, in no text that is read, stands for them in the engine's history: when it
// goes by an undo they go, and when it comes back they come back.
kite.insertions = { done: [], undone: [] };

kite.insertSpan = function (html) {
    if (!getSelection().isCollapsed) kite.command('delete');
    kite.command('insertText', kite.holder);
    const selection = getSelection();
    const text = selection.anchorNode;
    if (!text || text.nodeType !== Node.TEXT_NODE) return kite.insert(html);
    const insertion = { text, at: selection.anchorOffset - 1, nodes: kite.nodesOf(html) };
    kite.insertions.done.push(insertion);
    kite.insertions.undone = [];
    kite.putIn(insertion);
};

// The engine's history knows the nodes, so that they are always the same ones.
kite.putIn = function (insertion) {
    const { text, at, nodes } = insertion;
    const following = text.data.slice(at + 1);
    text.deleteData(at + 1, following.length);
    // Behind the last one there has to be a place for the caret.
    insertion.rest = insertion.rest || document.createTextNode('');
    insertion.rest.data = following || kite.holder;
    text.after(...nodes, insertion.rest);
    getSelection().collapse(insertion.rest, following ? 0 : 1);
};

kite.takeOut = function (insertion) {
    const { text, nodes, rest } = insertion;
    for (const node of nodes) node.remove();
    const isHolder = rest.data === kite.holder;
    if (rest.isConnected && !isHolder) text.appendData(rest.data);
    rest.remove();
};

kite.followHistory = function (inputType) {
    const { done, undone } = kite.insertions;
    const stands = ({ text, at }) => text.data[at] === kite.holder;
    if (inputType === 'historyUndo' && done.length && !stands(done[done.length - 1])) {
        undone.push(done.pop());
        kite.takeOut(undone[undone.length - 1]);
    } else if (inputType === 'historyRedo' && undone.length && stands(undone[undone.length - 1])) {
        done.push(undone.pop());
        kite.putIn(done[done.length - 1]);
    }
};

// Spans that show the same thing are shown anew where they stand: what they stand for changed, which
// the history of the page knows nothing of.
kite.refreshSpans = function (html) {
    const [fresh] = kite.nodesOf(html);
    const id = fresh && fresh.id && fresh.id.startsWith('metaspan') ? fresh.id : '';
    const shown = id ? document.querySelectorAll('#' + CSS.escape(id)) : [];
    for (const span of shown) span.innerHTML = fresh.innerHTML;
    return shown.length > 0;
};

// Writes the element that the author stands in.
kite.actions.replaceelement = function (html) {
    if (html && kite.refreshSpans(html)) return kite.untold;
    const element = kite.target && kite.target.isConnected ? kite.target : kite.currentElement();
    if (!element || element === document.body) return;
    const range = document.createRange();
    range.selectNode(element);
    getSelection().removeAllRanges();
    getSelection().addRange(range);
    if (html) kite.insertSpan(html);
    else kite.command('delete');
    kite.target = null;
};

// What is copied within pages that are written on as a whole stays as it stands, spans included.
kite.ownFormat = 'application/x-paperkite-layout';
// Says of which page the numbers of copied spans are.
kite.layout = Date.now() + '-' + Math.random();

kite.takeOwn = function (data) {
    const { layout, html } = JSON.parse(data);
    if (layout === kite.layout || !html.includes('id="metaspan')) return kite.insertSpan(html);
    kite.bridge.pasted(kite.generation, layout, html);
};

kite.copied = function (event) {
    const selection = getSelection();
    if (!selection.rangeCount || selection.isCollapsed || !kite.selectedPlace()) return;
    const range = selection.getRangeAt(0).cloneRange();
    const span = kite.spanAround(kite.currentElement());
    if (span) range.selectNode(span);
    const holder = document.createElement('div');
    holder.append(range.cloneContents());
    event.clipboardData.setData('text/html', holder.innerHTML.replaceAll(kite.holder, ''));
    kite.emptyLargeSpans(holder);
    const html = holder.innerHTML.replaceAll(kite.holder, '');
    event.clipboardData.setData(kite.ownFormat, JSON.stringify({ layout: kite.layout, html }));
    kite.bridge.copied(kite.generation, kite.layout, html);
    event.clipboardData.setData('text/plain', selection.toString().replaceAll(kite.holder, ''));
    event.preventDefault();
    if (event.type !== 'cut') return;
    selection.removeAllRanges();
    selection.addRange(range);
    kite.command('delete');
};
