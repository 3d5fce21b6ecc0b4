'use strict';
// What comes from outside keeps what a comment can say (emphasis, code, lists, tables, links,
// pictures by address) and loses the rest: foreign styles, classes, scripts, fonts, wrappers.

kite.kept = new Set(['P', 'BR', 'B', 'STRONG', 'I', 'EM', 'U', 'CODE', 'PRE', 'KBD', 'SAMP', 'VAR',
    'UL', 'OL', 'LI', 'TABLE', 'CAPTION', 'THEAD', 'TBODY', 'TFOOT', 'TR', 'TD', 'TH', 'A', 'IMG',
    'H1', 'H2', 'H3', 'H4', 'H5', 'H6', 'BLOCKQUOTE', 'HR', 'DL', 'DT', 'DD', 'SUB', 'SUP']);
kite.dropped = new Set(['SCRIPT', 'STYLE', 'TITLE', 'META', 'LINK', 'BASE', 'HEAD', 'IFRAME',
    'FRAME', 'FRAMESET', 'OBJECT', 'EMBED', 'APPLET', 'TEMPLATE', 'NOSCRIPT', 'SVG', 'MATH',
    'CANVAS', 'AUDIO', 'VIDEO', 'SELECT', 'TEXTAREA', 'INPUT', 'BUTTON', 'XML']);
kite.keptAttributes = { A: ['href', 'title'], IMG: ['src', 'alt', 'width', 'height', 'title'],
    TD: ['colspan', 'rowspan'], TH: ['colspan', 'rowspan', 'scope'], OL: ['start', 'type'] };
kite.blocks = 'p, ul, ol, table, pre, blockquote, h1, h2, h3, h4, h5, h6, hr, dl, div';

kite.isSafeAddress = function (name, value) {
    const scheme = value.replace(/[\u0000-\u0020\u00a0]/g, '').toLowerCase();
    if (/^(javascript|vbscript):/.test(scheme)) return false;
    return !/^(data|blob):/.test(scheme);
};

kite.emphasisOf = function (element) {
    const style = element.style;
    const tags = [];
    if (style.fontWeight === 'bold' || style.fontWeight === 'bolder' || +style.fontWeight >= 600)
        tags.push('b');
    if (style.fontStyle === 'italic') tags.push('i');
    if (/mono|courier|consolas/i.test(style.fontFamily)) tags.push('code');
    return tags;
};

kite.isNormalWeight = element => element.tagName === 'B' &&
    (element.style.fontWeight === 'normal' || element.style.fontWeight === '400');

kite.cleaned = function (node, into) {
    if (node.nodeType === Node.TEXT_NODE) {
        into.append(node.data.replace(/[\u200b\ufeff]/g, ''));
        return;
    }
    if (node.nodeType !== Node.ELEMENT_NODE) return;
    const tag = node.tagName.toUpperCase();
    if (kite.dropped.has(tag) || /mso-list:\s*ignore/i.test(node.getAttribute('style') || ''))
        return;
    if (tag === 'IMG' && !kite.isSafeAddress('src', node.getAttribute('src') || 'data:')) return;
    kite.cleanedChildren(node, kite.shellOf(node, tag, into));
};

// Where the contents of an element go: into a bare one of its kind, or straight into the parent.
kite.shellOf = function (node, tag, into) {
    let name = kite.kept.has(tag) && !kite.isNormalWeight(node) ? tag : '';
    if (tag === 'DIV' && !node.querySelector(kite.blocks)) name = 'P';
    let shell = into;
    if (name) {
        shell = document.createElement(name);
        for (const attribute of kite.keptAttributes[name] || []) {
            const value = node.getAttribute(attribute);
            if (value !== null && kite.isSafeAddress(attribute, value))
                shell.setAttribute(attribute, value);
        }
        into.append(shell);
    }
    if (tag !== 'SPAN' && tag !== 'FONT') return shell;
    for (const emphasis of kite.emphasisOf(node)) {
        const inner = document.createElement(emphasis);
        shell.append(inner);
        shell = inner;
    }
    return shell;
};

kite.listKind = function (node) {
    if (node.nodeType !== Node.ELEMENT_NODE || node.tagName !== 'P') return '';
    if (!/mso-list/i.test(node.getAttribute('style') || '')) return '';
    return /^\s*(\d+|[a-z])[.)]/i.test(node.textContent) ? 'ol' : 'ul';
};

kite.cleanedChildren = function (node, into) {
    let list = null;
    for (const child of node.childNodes) {
        if (child.nodeType === Node.TEXT_NODE && !child.data.trim() && /[\r\n]/.test(child.data) &&
            (list || node.matches('body, ul, ol, table, thead, tbody, tr, div'))) continue;
        const kind = kite.listKind(child);
        if (!kind) {
            if (child.nodeType === Node.ELEMENT_NODE) list = null;
            kite.cleaned(child, into);
            continue;
        }
        if (!list || list.tagName.toLowerCase() !== kind) into.append(list = document.createElement(kind));
        const item = document.createElement('li');
        list.append(item);
        kite.cleanedChildren(child, item);
    }
};

kite.sanitised = function (html) {
    const source = new DOMParser().parseFromString(html, 'text/html');
    const holder = document.implementation.createHTMLDocument('').createElement('div');
    kite.cleanedChildren(source.body, holder);
    for (const link of holder.querySelectorAll('a:not([href])')) link.replaceWith(...link.childNodes);
    for (const empty of holder.querySelectorAll('b, i, u, code, strong, em'))
        if (!empty.textContent && !empty.querySelector('img')) empty.remove();
    return holder.innerHTML.trim();
};

kite.fromPlainText = function (text) {
    const paragraphs = text.replace(/\r\n?/g, '\n').replace(/\n+$/, '').split(/\n{2,}/);
    const lines = paragraph => kite.escaped(paragraph).replace(/\n/g, '<br>');
    if (paragraphs.length === 1) return lines(paragraphs[0]);
    return paragraphs.map(paragraph => '<p>' + lines(paragraph) + '</p>').join('');
};

// True when something was taken in.
kite.takeIn = function (data) {
    const own = kite.whole ? data.getData(kite.ownFormat) : '';
    if (own) return kite.takeOwn(own);
    const html = data.getData('text/html');
    const clean = html ? kite.sanitised(html) : '';
    const text = data.getData('text/plain');
    if (clean || text) return kite.insert(clean || kite.fromPlainText(text));
    if ([...data.items].some(item => item.type.startsWith('image/')) || /<img/i.test(html))
        kite.bridge.picture(kite.generation);
    return false;
};

kite.listenForPaste = function () {
    document.addEventListener('paste', event => {
        event.preventDefault();
        if (kite.editable && kite.selectedPlace()) kite.takeIn(event.clipboardData);
    }, true);
    let fromHere = false;
    document.addEventListener('dragstart', () => { fromHere = true; }, true);
    document.addEventListener('dragend', () => { fromHere = false; }, true);
    const isOutside = event => !kite.editable || !kite.placeOf(event.target);
    for (const name of ['dragenter', 'dragover'])
        document.addEventListener(name, event => {
            if (!isOutside(event)) return;
            event.preventDefault();
            event.dataTransfer.dropEffect = 'none';
        }, true);
    document.addEventListener('drop', event => {
        if (isOutside(event)) return event.preventDefault();
        if (fromHere) return;
        event.preventDefault();
        const point = document.caretRangeFromPoint(event.clientX, event.clientY);
        if (!point || !kite.placeOf(point.startContainer)) return;
        kite.placeOf(point.startContainer).focus({ preventScroll: true });
        getSelection().removeAllRanges();
        getSelection().addRange(point);
        kite.takeIn(event.dataTransfer);
    }, true);
};
