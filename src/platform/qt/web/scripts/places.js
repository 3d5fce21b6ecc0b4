'use strict';
// The places that the author may edit: which there are, what stands in them, and the reports.

const kite = {
    generation: 0,
    editable: false,
    whole: false,
    places: [],
    loaded: [],
    sent: [],
    dirty: new Set(),
    inFlight: -1,
    keysSeen: 0,
    awaitsText: false,
    number: 0,
    typedAt: -1000,
    bridge: null,
    keptStyles: new Set(),
    last: null,
};

kite.untold = 'untold';

// A character that no reader sees and that is in no text that is read.
kite.holder = '\u200b';

// A whole page may hold such characters of its own, so that another one is taken.
kite.chooseHolder = function () {
    const html = document.documentElement.innerHTML;
    const isFree = character => !html.includes(character);
    kite.holder = ['\u200b', '\u2060', '\u2063', '\u2064'].find(isFree) || '\u200b';
};

kite.placeOf = function (node) {
    const element = node && (node.nodeType === Node.ELEMENT_NODE ? node : node.parentElement);
    return element ? element.closest('[data-kite-place]') : null;
};

kite.indexOf = place => place ? Number(place.getAttribute('data-kite-place')) : -1;

kite.findPlaces = function () {
    if (kite.whole) return document.body ? [document.body] : [];
    const isEditable = e => (e.getAttribute('contenteditable') || '').toLowerCase() === 'true';
    const all = [...document.querySelectorAll('[contenteditable]')].filter(isEditable);
    const marked = new Set();
    for (const element of all) {
        let outer = element.parentElement;
        while (outer && !marked.has(outer)) outer = outer.parentElement;
        if (!outer) marked.add(element);
    }
    return [...marked];
};

kite.rememberStyles = function (root) {
    for (const element of root.querySelectorAll('[style]'))
        kite.keptStyles.add(element.getAttribute('style'));
};

kite.fill = function (index, html) {
    const place = kite.places[index];
    if (html === '' && !place.firstChild) return kite.leaveEmpty(place, index);
    if (place.innerHTML !== html) place.innerHTML = html;
    if (kite.whole) kite.fillSpans(place);
    kite.rememberStyles(place);
    kite.loaded[index] = { engine: place.innerHTML, text: html };
    kite.sent[index] = html;
    kite.showEmpty(place);
};

// Most places of a large page are, and nothing has to be looked at.
kite.leaveEmpty = function (place, index) {
    kite.loaded[index] = { engine: '', text: '' };
    kite.sent[index] = '';
    place.setAttribute('data-kite-empty', '');
};

kite.isBlank = function (html) {
    const rest = html.replace(/<br>|<\/?(p|div)>|&nbsp;|[\s\u00a0\u200b]+/gi, '');
    return rest === '';
};

// The hint stands in the first line of a place, which a paragraph would push down.
kite.showEmpty = function (place) {
    if (kite.whole) return;
    const isEmpty = kite.isBlank(place.innerHTML) && !place.querySelector('p, div');
    place.toggleAttribute('data-kite-empty', isEmpty);
};

// The engine leaves blanks and line breaks at the ends of what was typed and deleted again.
kite.loosely = html => html.replace(/(?:&nbsp;|\s|<br>)+(?=<\/|$)/g, '');

// What editing commands of the engine leave behind: styles that keep a look when lines are joined,
// and the invisible characters that hold the caret.
kite.withoutTraces = function (place) {
    const html = place.innerHTML;
    if (!html.includes(kite.holder) && !/ style=| data-kite/.test(html)) return html;
    // Not read anew: a page that is being edited may hold what no parser would build.
    const inert = document.implementation.createHTMLDocument('');
    const copy = inert.importNode(place, true);
    const texts = inert.createTreeWalker(copy, NodeFilter.SHOW_TEXT);
    while (texts.nextNode())
        texts.currentNode.data = texts.currentNode.data.replaceAll(kite.holder, '');
    if (kite.whole) kite.emptyLargeSpans(copy);
    for (const element of copy.querySelectorAll('[style]')) {
        if (kite.keptStyles.has(element.getAttribute('style'))) continue;
        if (element.id.startsWith('metaspan')) continue;
        element.removeAttribute('style');
        if (element.tagName === 'SPAN' && !element.attributes.length)
            element.replaceWith(...element.childNodes);
    }
    if (!kite.whole)
        for (const code of copy.querySelectorAll('code'))
            if (!code.firstChild) code.remove();
    return copy.innerHTML;
};

kite.textOf = function (index) {
    const place = kite.places[index];
    const loaded = kite.loaded[index];
    if (place.innerHTML === loaded.engine) return loaded.text;
    const html = kite.withoutTraces(place);
    // A whole page is kept to the letter.
    if (kite.whole) return html;
    if (kite.loosely(html) === kite.loosely(loaded.engine)) return loaded.text;
    return kite.isBlank(html) ? '' : html;
};

kite.changed = function (place) {
    const index = kite.indexOf(place);
    if (index < 0) return;
    if (kite.whole) return kite.touched(index);
    kite.showEmpty(place);
    kite.dirty.add(index);
    kite.send();
    kite.typedAt = performance.now();
    kite.selectionMoved();
    kite.marks.changed(place);
};

// A whole page is asked for when somebody wants to read it.
kite.touched = function (index) {
    kite.dirty.add(index);
    kite.typedAt = performance.now();
    kite.bridge.touched(kite.generation, document.queryCommandEnabled('undo'));
    kite.selectionMoved();
};

// One report is under way at a time, so that a burst of keys does not pile up.
kite.send = function () {
    if (!kite.bridge || kite.whole || kite.inFlight >= 0) return;
    for (const index of kite.dirty) {
        kite.dirty.delete(index);
        const text = kite.textOf(index);
        if (text === kite.sent[index]) continue;
        kite.sent[index] = text;
        kite.inFlight = index;
        kite.bridge.typed(kite.generation, index, ++kite.number, text, () => {
            kite.inFlight = -1;
            kite.send();
        });
        return;
    }
};

// Keys come on another way than questions, which may overtake them.
kite.hasSeen = keys => kite.areKeysDone(keys) && !kite.pendingRuns ? 'yes' : '';

// Whether the page has seen that many keys, and what the last one types.
kite.areKeysDone = keys => kite.keysSeen >= keys && !kite.awaitsText;

kite.flush = function () {
    if (kite.inFlight >= 0) kite.dirty.add(kite.inFlight);
    const reports = [...kite.dirty].map(index => {
        kite.sent[index] = kite.textOf(index);
        return [index, ++kite.number, kite.sent[index]];
    });
    kite.dirty.clear();
    return JSON.stringify(reports);
};

kite.setPlace = function (index, html) {
    const place = kite.places[index];
    if (!place) return;
    const caret = kite.caretIn(place);
    kite.dirty.delete(index);
    kite.fill(index, html);
    if (caret) kite.putCaret(place, caret[0], caret[1]);
    kite.marks.changed(place);
    kite.selectionMoved();
};

// The characters of a place before a point, and the way back.

kite.caretIn = function (place) {
    const selection = getSelection();
    if (!selection.rangeCount || !place.contains(selection.anchorNode)) return null;
    const range = selection.getRangeAt(0);
    if (!place.contains(range.endContainer)) return null;
    const before = document.createRange();
    before.selectNodeContents(place);
    before.setEnd(range.startContainer, range.startOffset);
    const start = before.toString().length;
    before.setEnd(range.endContainer, range.endOffset);
    return [start, before.toString().length];
};

kite.pointAt = function (place, offset) {
    const walker = document.createTreeWalker(place, NodeFilter.SHOW_TEXT);
    let last = null;
    for (let node = walker.nextNode(); node; node = walker.nextNode()) {
        if (offset <= node.length) return [node, offset];
        offset -= node.length;
        last = node;
    }
    return last ? [last, last.length] : [place, place.childNodes.length];
};

kite.putCaret = function (place, start, end) {
    const from = kite.pointAt(place, start);
    const to = kite.pointAt(place, end);
    getSelection().setBaseAndExtent(from[0], from[1], to[0], to[1]);
};
