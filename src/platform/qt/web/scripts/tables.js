'use strict';
// Tables inside places. The engine knows nothing about rows and columns, so that a changed table is
// put in the place of the old one by a command of the engine: undo takes it back in one step.

// Where a whole table is selected (undo leaves it so), its first cell.
kite.cell = function () {
    const cell = kite.within('td, th');
    if (cell || !kite.selectedPlace()) return cell;
    const range = getSelection().getRangeAt(0);
    const table = kite.within('table') || range.startContainer.childNodes[range.startOffset];
    return table && table.tagName === 'TABLE' ? table.querySelector('td, th') : null;
};

kite.replaceTable = function (table, change, caretAt) {
    const copy = table.cloneNode(true);
    change(copy);
    const range = document.createRange();
    range.selectNode(table);
    getSelection().removeAllRanges();
    getSelection().addRange(range);
    const place = kite.placeOf(table);
    const before = [...place.querySelectorAll('table')].indexOf(table);
    if (!copy.rows.length || !copy.rows[0].cells.length) return kite.command('delete');
    kite.insert(copy.outerHTML);
    const fresh = place.querySelectorAll('table')[before];
    if (fresh) kite.caretInCell(fresh, caretAt[0], caretAt[1]);
};

kite.caretInCell = function (table, row, column) {
    const line = table.rows[Math.max(0, Math.min(row, table.rows.length - 1))];
    const cell = line && line.cells[Math.max(0, Math.min(column, line.cells.length - 1))];
    if (!cell) return;
    getSelection().selectAllChildren(cell);
    getSelection().collapseToStart();
};

kite.changeTable = function (change, rowStep, columnStep) {
    const cell = kite.cell();
    if (!cell) return;
    const row = cell.parentElement.rowIndex;
    const column = cell.cellIndex;
    kite.replaceTable(cell.closest('table'), table => change(table, row, column),
        [row + rowStep, column + columnStep]);
};

kite.emptyCell = function (like) {
    const cell = document.createElement(like.tagName);
    cell.append(document.createElement('br'));
    return cell;
};

Object.assign(kite.actions, {
    inserttable: function (rows, columns) {
        const row = '<tr>' + '<td><br></td>'.repeat(Number(columns)) + '</tr>';
        const place = kite.selectedPlace();
        const before = new Set(place.querySelectorAll('table'));
        kite.insert('<table><tbody>' + row.repeat(Number(rows)) + '</tbody></table>');
        const fresh = [...place.querySelectorAll('table')].find(table => !before.has(table));
        if (fresh) kite.caretInCell(fresh, 0, 0);
    },
    insertrow: () => kite.changeTable((table, row) => {
        const line = table.rows[row];
        const fresh = document.createElement('tr');
        for (const cell of line.cells) fresh.append(kite.emptyCell(
            { tagName: table.rows.length > 1 ? table.rows[1].cells[0].tagName : cell.tagName }));
        line.after(fresh);
    }, 1, 0),
    insertcolumn: () => kite.changeTable((table, row, column) => {
        for (const line of table.rows) {
            const beside = line.cells[Math.min(column, line.cells.length - 1)];
            if (beside) beside.after(kite.emptyCell(beside));
        }
    }, 0, 1),
    deleterow: () => kite.changeTable((table, row) => table.rows[row].remove(), 0, 0),
    deletecolumn: () => kite.changeTable((table, row, column) => {
        for (const line of table.rows)
            if (line.cells[column]) line.cells[column].remove();
    }, 0, 0),
    deletetable: () => kite.changeTable(table => table.replaceChildren(), 0, 0),
});

// Tab walks through the cells; behind the last one a row is added.
kite.tabInTable = function (backwards) {
    const cell = kite.cell();
    if (!cell || kite.tabLeaves) return false;
    const cells = [...cell.closest('table').querySelectorAll('td, th')];
    const at = cells.indexOf(cell) + (backwards ? -1 : 1);
    if (at < 0) return false;
    if (at === cells.length) {
        kite.run('insertrow', []);
        const fresh = kite.cell();
        if (fresh) kite.caretInCell(fresh.closest('table'), fresh.parentElement.rowIndex, 0);
        return true;
    }
    getSelection().selectAllChildren(cells[at]);
    return true;
};
