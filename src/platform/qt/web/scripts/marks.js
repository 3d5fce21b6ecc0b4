'use strict';
// Wavy lines below misspelt words. They are drawn in a layer of their own over the page, so that
// nothing of them is ever in the text. Only places that can be seen are looked at.

kite.marks = { wanted: false, known: new Map(), due: 0, waiting: false, found: [], asked: null };

// Made for the first mark: a page with a layer is laid out more slowly.
kite.marks.layer = function () {
    if (kite.marks.root) return kite.marks.root;
    const host = document.createElement('div');
    host.setAttribute('data-kite-marks', '');
    host.setAttribute('aria-hidden', 'true');
    host.style.cssText = 'all: initial; position: absolute; left: 0; top: 0; width: 0; height: 0;';
    document.documentElement.append(host);
    kite.marks.root = host.attachShadow({ mode: 'closed' });
    return kite.marks.root;
};

// The text of a place as it is spoken, with the nodes that it came from.
kite.marks.textOf = function (place) {
    const pieces = [];
    let text = '';
    const walk = node => {
        for (const child of node.childNodes) {
            if (child.nodeType === Node.TEXT_NODE) {
                pieces.push([text.length, child]);
                text += child.data;
            } else if (child.nodeType === Node.ELEMENT_NODE) {
                const apart = child.matches(kite.blocks + ', br, li, td, th');
                const skipped = child.matches('code, pre, kbd, samp, script, style');
                if (apart || skipped) text += '\n';
                if (!skipped) walk(child);
                if (apart) text += '\n';
            }
        }
    };
    walk(place);
    return { text, pieces };
};

kite.marks.rangeOf = function (pieces, start, length) {
    const range = document.createRange();
    const at = offset => {
        let found = pieces[0];
        for (const piece of pieces) if (piece[0] <= offset) found = piece;
        return [found[1], Math.min(offset - found[0], found[1].length)];
    };
    range.setStart(...at(start));
    const last = at(start + length - 1);
    range.setEnd(last[0], last[1] + 1);
    return range;
};

kite.marks.isSeen = function (place) {
    const box = place.getBoundingClientRect();
    return box.bottom > 0 && box.top < innerHeight;
};

kite.marks.ask = function (text, then) {
    if (kite.marks.known.has(text)) return then(kite.marks.known.get(text));
    kite.bridge.misspelt(kite.generation, text, words => {
        if (kite.marks.known.size > 500) kite.marks.known.clear();
        kite.marks.known.set(text, words);
        then(words);
    });
};

kite.marks.draw = function () {
    const marks = kite.marks;
    marks.found = [];
    if (marks.root) marks.root.replaceChildren();
    if (!marks.wanted || !kite.editable || !kite.bridge) return;
    const round = marks.round = {};
    for (const place of kite.places) {
        if (!marks.isSeen(place)) continue;
        const { text, pieces } = marks.textOf(place);
        if (!text.trim()) continue;
        marks.ask(text, words => {
            if (marks.round === round) marks.drawWords(place, pieces, words);
        });
    }
};

kite.marks.drawWords = function (place, pieces, words) {
    const selection = getSelection();
    const caret = selection.isCollapsed ? selection.anchorNode : null;
    for (let index = 0; index + 1 < words.length; index += 2) {
        const range = kite.marks.rangeOf(pieces, words[index], words[index + 1]);
        // Nobody wants to be told about the word that is being typed.
        const isTyped = caret && range.endContainer === caret &&
            range.endOffset === selection.anchorOffset && document.activeElement === place;
        if (isTyped) continue;
        kite.marks.found.push(range);
        for (const box of range.getClientRects()) kite.marks.line(box);
    }
};

kite.marks.line = function (box) {
    const line = document.createElement('div');
    const wave = "url(\"data:image/svg+xml,%3Csvg xmlns='http://www.w3.org/2000/svg' width='6' " +
        "height='3'%3E%3Cpath d='M0 2.5 L1.5 .5 L4.5 2.5 L6 .5' fill='none' stroke='%23da4453'/" +
        "%3E%3C/svg%3E\")";
    line.style.cssText = 'position: absolute; height: 3px; pointer-events: none; ' +
        'left: ' + (box.left + scrollX) + 'px; top: ' + (box.bottom + scrollY - 3) + 'px; ' +
        'width: ' + box.width + 'px; background: ' + wave + ' repeat-x;';
    kite.marks.layer().append(line);
};

kite.marks.changed = function () {
    if (!kite.marks.wanted) return;
    kite.marks.due = performance.now() + 120;
    if (kite.marks.waiting) return;
    kite.marks.waiting = true;
    const wait = now => {
        if (now < kite.marks.due) return requestAnimationFrame(wait);
        kite.marks.waiting = false;
        kite.marks.draw();
    };
    requestAnimationFrame(wait);
};

kite.marks.refresh = function (wanted) {
    kite.marks.wanted = wanted;
    kite.marks.known.clear();
    kite.marks.draw();
};

kite.marks.at = function (x, y) {
    const holds = box => x >= box.left && x <= box.right && y >= box.top && y <= box.bottom;
    return kite.marks.found.find(range => [...range.getClientRects()].some(holds)) || null;
};

kite.marks.replace = function (replacement) {
    if (!kite.marks.asked) return;
    const place = kite.placeOf(kite.marks.asked.startContainer);
    getSelection().removeAllRanges();
    getSelection().addRange(kite.marks.asked);
    kite.marks.asked = null;
    kite.command('insertText', replacement);
    kite.changed(place);
};
