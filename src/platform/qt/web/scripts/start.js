'use strict';
// Brings a page to life: fills its places, listens, and ties itself to the program.

kite.style = `
:where([data-kite-place]) { display: block; min-height: 1.3em; border-radius: 3px;
    outline: 1px dashed var(--kite-lines); outline-offset: 2px; cursor: text;
    overflow-wrap: break-word; }
td[data-kite-place], th[data-kite-place] { display: table-cell; }
body[data-kite-place] { outline: none; min-height: calc(100vh - 16px); }
:where([data-kite-place]):hover { outline-color: var(--kite-highlight); }
:where([data-kite-place]):focus { outline: 2px solid var(--kite-highlight); }
body[data-kite-place]:focus { outline: none; }
/* In the line and without width: floats and absolute boxes of the whole page would be laid out with
   every key. */
[data-kite-empty]::before { content: attr(data-placeholder); color: var(--kite-quiet);
    display: inline-block; width: 0; white-space: nowrap; pointer-events: none; }
[data-kite-place] table:not([border]) td, [data-kite-place] table:not([border]) th {
    min-width: 2em; outline: 1px dotted var(--kite-lines); }
`;

kite.setColours = function (colours) {
    for (const [name, value] of Object.entries(colours))
        document.documentElement.style.setProperty('--kite-' + name, value);
    kite.setScheme(colours.dark === '1');
};

// The engine takes its scheme from the system once; the program's may be another one and changes.
kite.setScheme = function (dark) {
    document.documentElement.style.colorScheme = dark ? 'dark' : 'light';
    for (const sheet of document.styleSheets) {
        try {
            kite.setSchemeOf(sheet.cssRules, dark);
        } catch (refused) {
            // A sheet from a file of its own cannot be looked into.
        }
    }
};

kite.schemeTexts = new WeakMap();
kite.setSchemeOf = function (rules, dark) {
    const always = '(min-width: 0px)';
    const never = '(max-width: 0px)';
    for (const rule of rules) {
        if (rule.cssRules) kite.setSchemeOf(rule.cssRules, dark);
        if (!rule.media) continue;
        const text = kite.schemeTexts.get(rule) || rule.media.mediaText;
        if (!text.includes('prefers-color-scheme')) continue;
        kite.schemeTexts.set(rule, text);
        rule.media.mediaText = text
            .replace(/\(prefers-color-scheme: dark\)/g, dark ? always : never)
            .replace(/\(prefers-color-scheme: light\)/g, dark ? never : always);
    }
};

kite.mark = function (place, index) {
    place.setAttribute('data-kite-place', index);
    place.setAttribute('role', 'textbox');
    place.setAttribute('aria-multiline', 'true');
    const name = place.getAttribute('data-placeholder') || place.getAttribute('title');
    if (name && !place.hasAttribute('aria-label')) place.setAttribute('aria-label', name);
    place.spellcheck = false;
};

// Only what is edited is marked: the previews' places are plain parts of the page.
kite.freeze = function () {
    for (const element of document.querySelectorAll('[contenteditable]'))
        element.setAttribute('contenteditable', 'false');
};

kite.start = function (given) {
    kite.editable = given.kind === 'editable';
    kite.whole = Boolean(given.whole);
    kite.setColours(given.colours);
    kite.places = kite.findPlaces();
    if (kite.whole && kite.editable && document.body) document.body.contentEditable = 'true';
    kite.places.forEach((place, index) => {
        if (kite.editable) kite.mark(place, index);
        kite.fill(index, given.places[index] || '');
    });
    if (kite.whole) kite.chooseHolder();
    if (!kite.editable) kite.freeze();
    const style = document.createElement('style');
    style.textContent = kite.whole ? kite.wholeStyle : kite.style;
    // Behind the body it would have the engine lay out the whole page with every key.
    if (kite.editable) document.head.append(style);
    kite.listen();
    kite.restore(given.position);
    kite.generation = given.generation;
    if (kite.bridge) kite.tellReady();
};

kite.restore = function (position) {
    if (!position) return;
    kite.last = position.caret || null;
    const place = kite.last && kite.places[kite.last.place];
    if (place && position.focus) {
        place.focus({ preventScroll: true });
        kite.putCaret(place, kite.last.start, kite.last.end);
    }
    // Scrolling has the engine lay out the page at once.
    if (position.x || position.y) scrollTo(position.x, position.y);
};

// The way to the program is opened while the page is still read.
kite.connect = function () {
    new QWebChannel(qt.webChannelTransport, channel => {
        kite.bridge = channel.objects.kite;
        if (kite.generation) kite.tellReady();
    });
};

kite.tellReady = function () {
    kite.bridge.ready(kite.generation);
    kite.send();
    kite.selectionMoved();
    kite.marks.draw();
};

kite.addressOf = function (element) {
    const link = element && element.closest && element.closest('a[href], area[href]');
    return link ? link.getAttribute('href') : '';
};

kite.keys = { b: 'bold', i: 'italic', u: 'underline', z: 'undo', y: 'redo' };

kite.keyDown = function (event) {
    ++kite.keysSeen;
    if (!kite.editable || event.isComposing) return;
    if (event.key === 'Escape') kite.tabLeaves = true;
    else if (event.key !== 'Tab' && event.key !== 'Shift') kite.tabLeaves = false;
    const taken = event.key === 'Tab' ? kite.tabInTable(event.shiftKey) : kite.shortcut(event);
    if (taken) event.preventDefault();
    // The letter comes in a step of its own.
    const types = event.key.length === 1 && !event.ctrlKey && !event.altKey && !event.metaKey;
    kite.awaitsText = types && !taken && Boolean(kite.selectedPlace());
};

kite.shortcut = function (event) {
    if (!event.ctrlKey || event.altKey || event.metaKey || !kite.selectedPlace()) return false;
    const key = event.key.toLowerCase();
    if (key === 'k') {
        kite.bridge.command(kite.generation, 'createlink');
        return true;
    }
    if (key === '[' || key === ']') {
        kite.run(key === '[' ? 'outdent' : 'indent', []);
        return true;
    }
    if (!kite.keys[key] || (event.shiftKey && key !== 'z')) return false;
    const name = event.shiftKey ? 'redo' : kite.keys[key];
    // The program may know of an older change, one of several places.
    const isHistory = name === 'undo' || name === 'redo';
    if (isHistory && (kite.whole || !document.queryCommandEnabled(name)))
        kite.bridge.command(kite.generation, name);
    else
        kite.run(name, []);
    return true;
};

// A first line without an element of its own becomes a paragraph like those that follow it.
kite.beforeInput = function (event) {
    if (event.inputType !== 'insertParagraph') return;
    const place = kite.selectedPlace();
    if (!place || /^(P|PRE|H[1-6]|LI|DT|DD)$/.test(place.tagName)) return;
    const block = kite.within('p, li, td, th, pre, h1, h2, h3, h4, h5, h6, blockquote, dt, dd, div');
    if (!block) kite.command('formatBlock', 'p');
};

kite.menu = function (event) {
    event.preventDefault();
    const target = event.target;
    const mark = kite.marks.at(event.clientX, event.clientY);
    kite.marks.asked = mark;
    const image = target.closest && target.closest('img');
    kite.bridge.menu(kite.generation, JSON.stringify({
        ...(kite.whole ? kite.elementEvent(1023, event) : {}),
        x: event.clientX, y: event.clientY,
        place: kite.indexOf(kite.placeOf(target)),
        link: kite.addressOf(target) || '',
        image: image ? image.getAttribute('src') || '' : '',
        word: mark ? mark.toString() : '',
        table: Boolean(target.closest && target.closest('td, th')),
        field: Boolean(target.closest && target.closest('input, select, textarea, button')),
        text: !getSelection().isCollapsed,
    }));
};

kite.clicked = function (event) {
    const href = kite.addressOf(event.target);
    if (!href) return;
    event.preventDefault();
    event.stopPropagation();
    // In a place a click puts the caret; with Ctrl it follows the link.
    if (event.type === 'auxclick') return;
    if (kite.editable && kite.placeOf(event.target) && !event.ctrlKey) return;
    kite.bridge.link(kite.generation, href);
};

kite.listen = function () {
    const on = (name, action) => document.addEventListener(name, action, true);
    if (kite.whole) on('input', event => kite.followHistory(event.inputType));
    on('input', event => kite.changed(kite.placeOf(event.target)));
    for (const name of ['input', 'keyup', 'blur']) on(name, () => { kite.awaitsText = false; });
    on('selectionchange', kite.selectionMoved);
    on('keydown', kite.keyDown);
    on('beforeinput', kite.beforeInput);
    on('contextmenu', kite.menu);
    if (kite.whole) {
        on('mousedown', kite.pressed);
        on('dblclick', kite.doubleClicked);
        on('copy', kite.copied);
        on('cut', kite.copied);
    }
    on('click', kite.clicked);
    on('auxclick', kite.clicked);
    on('submit', event => event.preventDefault());
    addEventListener('scroll', () => { kite.selectionMoved(); kite.marks.changed(); });
    addEventListener('resize', () => kite.marks.changed());
    // Commands lay the page out, for which a page that is only looked at need not wait.
    document.addEventListener('focusin', kite.prepareCommands, { capture: true, once: true });
    kite.listenForPaste();
};

kite.prepareCommands = function () {
    kite.command('defaultParagraphSeparator', 'p');
    kite.command('styleWithCSS', false);
};

kite.connect();
