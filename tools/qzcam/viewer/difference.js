// SPDX-License-Identifier: Apache-2.0
// The Difference view: two sides, and only what differs unless more is asked for.

const DIFFERENCE_SECTIONS = [['tags', 'Vendor tags'], ['capabilities', 'Static entries'], ['parameters', 'Parameters']];

function factText(fact) {
    if (fact === null || fact === undefined) return null;
    return typeof fact === 'object' ? `${fact.type} ${valueText(fact.values)}` : fact;
}

class DifferenceView {
    constructor(diff) {
        this.diff = diff;
        this.text = '';
        this.alike = {name: 'alike', label: 'Show what is alike', on: false};
        this.sections = this.sectionsOf(diff);
        this.choices = this.groupsOf(this.sections);
        this.list = new VirtualList('Differences', 30, (row) => this.rowContent(row), (row) => this.showDetails(row));
        this.details = el('aside', {class: 'details wide', 'aria-live': 'polite', 'aria-label': 'Details'});
        this.summary = el('p', {class: 'muted', 'aria-live': 'polite'});
        const refresh = () => this.filter();
        this.element = el('section', {class: 'difference'},
            el('div', {class: 'tools'}, searchField('Search names and values', (text) => {
                this.text = text;
                this.filter();
            }), toggles('Sections', this.choices, refresh), toggles('Rows', [this.alike], refresh)),
            this.summary,
            el('div', {class: 'row sides', role: 'presentation'}, el('span', {class: 'name'}, ''),
                el('span', {class: 'side'}, badge('info', 'A'), ` ${diff.a}`), el('span', {class: 'side'}, badge('info', 'B'), ` ${diff.b}`)),
            this.list.element, this.details);
        this.filter();
        this.showDetails(null);
    }

    sectionsOf(diff) {
        const alike = diff.alike || {};
        const sections = DIFFERENCE_SECTIONS.filter(([id]) => diff[id]).map(([id, title]) => ({group: id, title, rows: diff[id], alike: alike[id] || []}));
        const line = (number) => (number === null ? 'none' : `line ${number}`);
        for (const [index, request] of (diff.requests || []).entries()) {
            const lines = request.lineA === request.lineB ? line(request.lineA) : `${line(request.lineA)} and ${line(request.lineB)}`;
            sections.push({group: 'requests', title: `Differing request ${index + 1}, ${lines}`, rows: request.entries, alike: request.alike || []});
        }
        return sections;
    }

    // All requests are one choice.
    groupsOf(sections) {
        const groups = new Map();
        for (const {group, title, rows} of sections) {
            if (!groups.has(group)) groups.set(group, {name: group, label: group === 'requests' ? 'Requests' : title, count: 0, on: true});
            groups.get(group).count += rows.length;
        }
        return [...groups.values()];
    }

    filter() {
        const on = new Set(this.choices.filter((each) => each.on).map((each) => each.name));
        const rows = [];
        let shown = 0;
        for (const section of this.sections) {
            if (!on.has(section.group)) continue;
            const same = this.alike.on ? section.alike.map((row) => ({name: row.name, a: row.value, b: row.value, same: true})) : [];
            const found = [...section.rows, ...same].filter((row) => this.matches(row)).sort((a, b) => (a.name < b.name ? -1 : 1));
            if (found.length === 0) continue;
            rows.push({heading: section.title, count: found.length});
            rows.push(...found.map((row) => ({...row, tone: row.same ? 'same' : row.a === null ? 'only-b' : row.b === null ? 'only-a' : 'changed', section: section.title})));
            shown += found.length;
        }
        const all = this.sections.reduce((sum, section) => sum + section.rows.length, 0);
        this.summary.textContent = all === 0 && !this.alike.on ? 'Nothing differs.' :
            `${shown.toLocaleString('en')} rows shown, ${counted(all, 'difference')} in all`;
        this.list.chosen = -1;
        this.list.show(rows);
    }

    matches(row) {
        return this.text === '' || [row.name, factText(row.a), factText(row.b)].some((text) => String(text || '').toLowerCase().includes(this.text));
    }

    rowContent(row) {
        if (row.heading !== undefined) return [el('h3', {}, row.heading, el('span', {class: 'count'}, row.count))];
        const side = (fact) => el('code', {class: `side${fact === null ? ' none' : ''}`}, fact === null ? 'not there' : fact === '' ? 'empty' : fact);
        return [el('code', {class: 'name', title: row.name}, shortName(row.name)), side(factText(row.a)), side(factText(row.b))];
    }

    showDetails(row) {
        this.details.hidden = !row;
        if (!row) return;
        this.details.replaceChildren(el('h2', {}, shortName(row.name)), facts([['Name', el('code', {}, row.name)], ['In', row.section],
            ['A', el('code', {}, factText(row.a) === null ? 'not there' : factText(row.a))],
            ['B', el('code', {}, factText(row.b) === null ? 'not there' : factText(row.b))]]));
    }
}
