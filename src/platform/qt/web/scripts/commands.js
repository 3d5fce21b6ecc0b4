'use strict';
// What the tool bar, the menu and the keys do to the selection, and what is in force there.

kite.selectedPlace = function () {
    const selection = getSelection();
    if (!selection.rangeCount) return null;
    const place = kite.placeOf(selection.anchorNode);
    return place && place.contains(selection.focusNode) ? place : null;
};

kite.within = function (tag) {
    const selection = getSelection();
    const place = kite.selectedPlace();
    if (!place) return null;
    const node = selection.getRangeAt(0).commonAncestorContainer;
    const element = node.nodeType === Node.ELEMENT_NODE ? node : node.parentElement;
    const found = element.closest(tag);
    return found && place !== found && place.contains(found) ? found : null;
};

kite.escaped = text => text.replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/>/g, '&gt;')
    .replace(/"/g, '&quot;');

kite.command = (name, value) => document.execCommand(name, false, value);

kite.insert = html => kite.command('insertHTML', html);

kite.selectContents = function (node) {
    getSelection().selectAllChildren(node);
};

kite.colour = function (command, name) {
    kite.command('styleWithCSS', true);
    kite.command(command, name || (command === 'foreColor' ? 'initial' : 'transparent'));
    kite.command('styleWithCSS', false);
    kite.rememberStyles(kite.selectedPlace());
};

kite.code = function () {
    const code = kite.within('code');
    const selection = getSelection();
    if (!code && selection.isCollapsed) return kite.caretInNewCode();
    if (!code) {
        const range = selection.getRangeAt(0);
        const holder = document.createElement('div');
        holder.append(range.cloneContents());
        for (const inner of holder.querySelectorAll('code')) inner.replaceWith(...inner.childNodes);
        return kite.insert('<code>' + holder.innerHTML + '</code>');
    }
    if (selection.isCollapsed) return kite.leaveCode(code);
    const again = ['bold', 'italic', 'underline'].filter(name => document.queryCommandState(name));
    kite.command('removeFormat');
    for (const name of again) kite.command(name);
};

kite.caretInNewCode = function () {
    kite.insert('<code>' + kite.holder + '</code>');
};

kite.leaveCode = function (code) {
    const gap = document.createTextNode(kite.holder);
    code.after(gap);
    getSelection().collapse(gap, 1);
};

kite.link = function (url, caption) {
    const inside = kite.within('a');
    if (inside) kite.selectContents(inside);
    if (!getSelection().isCollapsed) return kite.command('createLink', url);
    kite.insert('<a href="' + kite.escaped(url) + '">' + kite.escaped(caption || url) + '</a>');
};

kite.unlink = function () {
    const inside = kite.within('a');
    if (inside) kite.selectContents(inside);
    kite.command('unlink');
};

kite.actions = {
    createlink: kite.link,
    unlink: kite.unlink,
    code: kite.code,
    insertimage: (url, alt) => kite.insert(
        '<img src="' + kite.escaped(url) + '" alt="' + kite.escaped(alt || '') + '">'),
    inserthtml: html => kite.whole ? kite.insertSpan(html) : kite.insert(html),
    forecolor: name => kite.colour('foreColor', name),
    fillcolor: name => kite.colour('backColor', name),
};

kite.plain = ['bold', 'italic', 'underline', 'indent', 'outdent', 'undo', 'redo', 'removeFormat',
    'insertOrderedList', 'insertUnorderedList'];
for (const name of kite.plain) kite.actions[name.toLowerCase()] = () => kite.command(name);

// The engine puts a list into the paragraph that it was made of, where no list can stand.
kite.freeLists = function (place) {
    const wrong = place.querySelectorAll('p > ul, p > ol');
    if (!wrong.length) return;
    const caret = kite.caretIn(place);
    for (const list of wrong)
        if (list.parentElement.tagName === 'P')
            list.parentElement.replaceWith(...list.parentElement.childNodes);
    if (caret) kite.putCaret(place, caret[0], caret[1]);
};

kite.run = function (name, args) {
    if (!kite.editable) return;
    if (!kite.selectedPlace()) kite.focusText();
    const place = kite.selectedPlace();
    if (!place || !kite.actions[name]) return;
    // What the program did itself it need not be told of.
    if (kite.actions[name](...args) === kite.untold) return kite.dirty.add(kite.indexOf(place));
    // A long page is not searched through for what only stands where the author is.
    const paragraph = kite.whole ? kite.within('p') : place;
    if (paragraph) kite.freeLists(kite.whole ? paragraph.parentElement : place);
    kite.changed(place);
};

// Keys come on another way than commands, which may overtake them: one that was pressed before a
// command is waited for. The engine keeps some keys to itself, so that the wait is a short one.
kite.pendingRuns = 0;
kite.runBehind = function (keys, name, args) {
    if (kite.areKeysDone(keys) && !kite.pendingRuns) return kite.run(name, args);
    ++kite.pendingRuns;
    const until = performance.now() + 100;
    const attempt = () => {
        if (!kite.areKeysDone(keys) && performance.now() < until)
            return requestAnimationFrame(attempt);
        --kite.pendingRuns;
        kite.run(name, args);
    };
    requestAnimationFrame(attempt);
};

kite.focusText = function () {
    const last = kite.last && kite.places[kite.last.place];
    const place = last || kite.places[0];
    if (!place) return;
    if (kite.selectedPlace()) return kite.selectedPlace().focus({ preventScroll: true });
    place.focus({ preventScroll: !last && scrollY === 0 });
    if (last) return kite.putCaret(place, kite.last.start, kite.last.end);
    if (kite.whole) return getSelection().collapse(place, 0);
    kite.putCaret(place, Infinity, Infinity);
};

kite.select = function (index, start, end) {
    const place = kite.places[index];
    if (!place) return;
    place.focus({ preventScroll: true });
    kite.putCaret(place, start, end);
    const box = getSelection().getRangeAt(0).getBoundingClientRect();
    if (box.top < 0 || box.bottom > innerHeight) scrollBy(0, box.top - innerHeight / 3);
};

// What is in force

kite.state = function () {
    const place = kite.selectedPlace();
    const on = [];
    const enabled = [];
    if (!place || !kite.editable)
        return { text: getSelection().toString().slice(0, 2000), on, enabled, fore: '', fill: '',
            link: '' };
    for (const name of kite.plain)
        if (document.queryCommandState(name)) on.push(name.toLowerCase());
    const always = ['bold', 'italic', 'underline', 'code', 'removeformat', 'insertorderedlist',
        'insertunorderedlist', 'indent', 'outdent', 'createlink', 'insertimage', 'inserttable',
        'paste', 'pasteplain', 'selectall'];
    enabled.push(...always);
    for (const name of ['undo', 'redo'])
        if (document.queryCommandEnabled(name)) enabled.push(name);
    if (!getSelection().isCollapsed) enabled.push('cut', 'copy');
    if (kite.within('code')) on.push('code');
    const link = kite.within('a');
    if (link) {
        on.push('createlink');
        enabled.push('unlink');
    }
    if (kite.within('table'))
        enabled.push('insertrow', 'insertcolumn', 'deleterow', 'deletecolumn', 'deletetable');
    return { text: getSelection().toString().slice(0, 2000), on, enabled,
        fore: document.queryCommandValue('foreColor'),
        fill: document.queryCommandValue('backColor'),
        link: link ? link.getAttribute('href') || '' : '' };
};

// Where pages run no scripts the engine runs no timers either; frames it does run.
kite.selectionMoved = function () {
    if (kite.selectionPending) return;
    kite.selectionPending = true;
    const tell = () => {
        // What is in force costs a layout of the page, which nobody looks at between two keys.
        if (performance.now() - kite.typedAt < 80) return requestAnimationFrame(tell);
        kite.selectionPending = false;
        const place = kite.selectedPlace();
        const caret = place && !kite.whole && kite.caretIn(place);
        if (caret) kite.last = { place: kite.indexOf(place), start: caret[0], end: caret[1] };
        const state = kite.state();
        state.position = kite.position();
        if (kite.whole) state.current = kite.pathOf(kite.target = kite.currentElement());
        const json = JSON.stringify(state);
        if (json === kite.sentState || !kite.bridge) return;
        kite.sentState = json;
        kite.bridge.selection(kite.generation, json);
    };
    requestAnimationFrame(tell);
};

kite.position = () => ({ x: scrollX, y: scrollY, caret: kite.last });
