// SPDX-License-Identifier: Apache-2.0
// The Matrix view: a row for each feature, a column for each camera of many devices. A feature opens to show
// its tags.

function matrixBadges(matrix) {
    if (!matrix) return [];
    const broken = matrix.columns.filter((column) => column.error !== undefined).length;
    const changes = (kind) => (matrix.changes || []).filter((change) => change.change === kind).length;
    return [badge('plain', counted(matrix.columns.length - broken, 'camera')),
        broken ? badge('bad', `${broken} not usable`) : null,
        matrix.changes ? badge(changes('worse') ? 'bad' : 'good', `${changes('worse')} worse`) : null,
        matrix.changes ? badge('good', `${changes('better')} better`) : null].filter(Boolean);
}

class MatrixView {
    constructor(matrix) {
        this.matrix = matrix;
        this.open = null;
        this.text = '';
        this.tables = el('div', {class: 'table-scroller', tabindex: '0', role: 'region', 'aria-label': 'Matrix'});
        this.details = el('aside', {class: 'details', 'aria-live': 'polite', 'aria-label': 'Details'},
            el('h2', {}, 'Details'), el('p', {class: 'muted hint'}, 'Choose a cell to see its reason, or a feature to see its tags.'), this.changes());
        this.element = el('section', {class: 'matrix'}, el('div', {class: 'tools'}, searchField('Search devices', (text) => {
            this.text = text;
            this.draw();
        })), el('div', {class: 'columns'}, this.tables, this.details));
        forPaper(() => this.draw());
        this.draw();
    }

    // On paper only this number of devices fits side by side; the others follow below.
    draw() {
        const {columns} = this.matrix;
        const shown = columns.map((column, index) => ({...column, index})).filter((column) => `${column.input} ${column.camera || ''}`.toLowerCase().includes(this.text));
        const most = paper.on ? 5 : shown.length;
        const parts = shown.length === 0 ? [[]] : [];
        for (let first = 0; first < shown.length; first += most) parts.push(shown.slice(first, first + most));
        this.tables.replaceChildren(...parts.map((part) => this.table(part, shown.length)));
    }

    table(shown, count) {
        const {columns, features, tags} = this.matrix;
        const head = shown.map((column) => el('th', {scope: 'col', title: column.input}, el('span', {class: 'device-name'}, column.input.replace(/^.*\//, '')),
            el('small', {class: column.error ? 'bad' : 'muted'}, column.error ? 'not usable' : column.camera.replace(/^.*\//, 'camera '))));
        const rows = [];
        for (const feature of features) {
            const button = el('button', {type: 'button', class: 'feature-name', 'aria-expanded': String(this.open === feature.feature), onclick: () => {
                this.open = this.open === feature.feature ? null : feature.feature;
                this.draw();
            }}, feature.feature);
            rows.push(this.row(button, feature.feature, feature.cells, shown, 'feature-row'));
            if (this.open !== feature.feature) continue;
            for (const tag of tags.filter((each) => each.feature === feature.feature))
                rows.push(this.row(el('code', {title: tag.tag}, shortName(tag.tag), el('small', {class: 'muted'}, ` ${tag.use}`)), tag.tag, tag.cells, shown, 'tag-row'));
        }
        return el('table', {class: 'matrix-table'}, el('thead', {}, el('tr', {}, el('th', {scope: 'col'}, el('span', {class: 'muted'}, `${count} of ${columns.length}`)), head)), el('tbody', {}, rows));
    }

    row(title, name, cells, shown, kind) {
        return el('tr', {class: kind}, el('th', {scope: 'row'}, title), shown.map((column) => {
            const cell = cells[column.index];
            const tone = cell ? CHECK_TONES[cell.verdict] : 'bad';
            const word = cell ? (CHECK_WORDS[cell.verdict] || [cell.verdict])[0] : 'not usable';
            const number = cell && cell.counts && cell.verdict !== 'fine' ? ` ${cell.counts[cell.verdict]}` : '';
            return el('td', {}, el('button', {type: 'button', class: `cell ${tone}`, 'aria-label': `${name}, ${column.input}: ${word}`,
                onclick: () => this.showDetails(name, column, cell, word, tone)}, word, number));
        }));
    }

    showDetails(name, column, cell, word, tone) {
        const counts = cell && cell.counts ? Object.entries(cell.counts).filter(([, count]) => count > 0).map(([verdict, count]) => `${count} ${(CHECK_WORDS[verdict] || [verdict])[0]}`).join(', ') : null;
        this.details.replaceChildren(el('h2', {}, shortName(name)), el('p', {}, badge(tone, word)),
            facts([['Input', column.input], ['Camera', column.camera], ['Vendor tags', column.vendorTags], ['Worst tag', cell && cell.tag ? el('code', {}, cell.tag) : null],
                ['Reason', cell ? cell.what : column.error], ['Tags', counts], ['Said', (column.messages || []).join('; ')]]));
    }

    changes() {
        const {changes} = this.matrix;
        if (!changes || changes.length === 0) return null;
        return el('div', {}, el('h3', {}, 'Since the baseline'), el('ul', {class: 'plain'}, changes.map((change) => el('li', {},
            badge({worse: 'bad', better: 'good'}[change.change] || 'plain', change.change), ' ', el('code', {}, shortName(change.tag)), ` ${change.input} ${change.camera}: ${change.before} → ${change.now} ${change.what}`))));
    }
}
