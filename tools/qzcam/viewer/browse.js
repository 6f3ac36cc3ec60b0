// SPDX-License-Identifier: Apache-2.0
// A list with a search: groups at its side, toggles above it, details beside it. A row has a name, and perhaps a
// value, a badge ([tone, text]), a line, kinds that a toggle hides, and pairs of facts for the details.

class BrowseView {
    // `groups` are {id, label}, in their order; `kinds` are the toggles.
    constructor({label, many, rows, groups, kinds, what}) {
        Object.assign(this, {label, many, groups, what, all: rows, kinds: kinds || [], group: null, text: ''});
        for (const kind of this.kinds) kind.count = rows.filter((row) => row.kinds.includes(kind.name)).length;
        this.hasBadges = rows.some((row) => row.badge);
        this.list = new VirtualList(label, 32, (row) => this.rowContent(row), (row) => this.showDetails(row));
        this.details = el('aside', {class: 'details', 'aria-live': 'polite', 'aria-label': 'Details'});
        this.summary = el('p', {class: 'muted', 'aria-live': 'polite'});
        this.nav = el('ul', {class: 'features'});
        const hasGroups = groups.length > 1;
        this.element = el('section', {class: 'browse'},
            el('div', {class: 'tools'}, searchField(`Search ${what}`, (text) => {
                this.text = text;
                this.filter();
            }), this.kinds.length ? toggles('Kinds', this.kinds, () => this.filter()) : null),
            el('div', {class: `columns${hasGroups ? ' three' : ''}`}, hasGroups ? el('nav', {'aria-label': 'Groups'}, this.nav) : null,
                el('div', {class: 'middle'}, this.summary, this.list.element), this.details));
        this.drawGroups();
        this.filter();
        this.showDetails(null);
    }

    drawGroups() {
        const item = (id, label, count) => el('li', {}, el('button', {type: 'button', class: 'feature', 'aria-pressed': String(this.group === id),
            onclick: () => this.choose(this.group === id ? null : id)}, el('span', {class: 'name'}, label), el('span', {class: 'count'}, count.toLocaleString('en'))));
        const counts = new Map();
        for (const row of this.all) counts.set(row.group, (counts.get(row.group) || 0) + 1);
        this.nav.replaceChildren(item(null, 'All', this.all.length), ...this.groups.map(({id, label}) => item(id, label, counts.get(id) || 0)));
    }

    choose(group) {
        this.group = group;
        this.drawGroups();
        this.filter();
        this.list.element.scrollTop = 0;
    }

    // The text for the search is built when it is first needed.
    matches(row) {
        if (this.text === '') return true;
        if (row.search === undefined) row.search = [row.name, row.value, ...(row.badge || []).slice(1), ...(row.words || [])].join('\n').toLowerCase();
        return row.search.includes(this.text);
    }

    filter() {
        const off = new Set(this.kinds.filter((kind) => !kind.on).map((kind) => kind.name));
        const found = this.all.filter((row) => (this.group === null || row.group === this.group) && !(row.kinds || []).some((kind) => off.has(kind)) && this.matches(row));
        this.summary.textContent = `${found.length.toLocaleString('en')} of ${counted(this.all.length, ...this.many)}`;
        const rows = [];
        const labels = new Map(this.groups.map(({id, label}) => [id, label]));
        let last;
        for (const row of found) {
            if (labels.size > 1 && row.group !== last) rows.push({heading: labels.get(row.group)});
            last = row.group;
            rows.push(row);
        }
        this.list.chosen = -1;
        this.list.show(rows);
    }

    rowContent(row) {
        if (row.heading !== undefined) return [el('h3', {}, row.heading)];
        return [row.badge ? badge(...row.badge) : this.hasBadges ? badge('none', '') : null, el('code', {class: 'name', title: row.title || row.name}, row.name),
            row.value === undefined ? null : el('code', {class: 'text'}, row.value === '' ? 'empty' : row.value.length > 2000 ? `${row.value.slice(0, 2000)} ...` : row.value),
            row.line ? el('span', {class: 'muted place'}, `line ${row.line}`) : null];
    }

    showDetails(row) {
        if (!row) return this.details.replaceChildren(el('h2', {}, 'Details'), el('p', {class: 'muted hint'}, `Choose a row to see all of it. The search looks through ${this.what}.`));
        this.details.replaceChildren(el('h2', {}, row.name), row.badge ? el('p', {}, badge(...row.badge)) : '', facts(row.facts()));
    }
}
