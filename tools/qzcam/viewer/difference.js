// SPDX-License-Identifier: Apache-2.0
// The Difference view: two sides. Equal values are shown only on request.

const DIFFERENCE_SECTIONS = [['tags', 'Vendor tags'], ['capabilities', 'Static entries'], ['parameters', 'Parameters']];

function factText(fact) {
    if (fact === null || fact === undefined) return null;
    return typeof fact === 'object' ? `${fact.type} ${valueText(fact.values)}` : fact;
}

// Compares two devices or two sessions.
function diffSides(diff) {
    const alike = diff.alike || {};
    const sections = DIFFERENCE_SECTIONS.filter(([id]) => diff[id]).map(([id, title]) => ({group: id, title, rows: diff[id], alike: alike[id] || []}));
    const line = (number) => (number === null ? 'none' : `line ${number}`);
    for (const [index, request] of (diff.requests || []).entries()) {
        const lines = request.lineA === request.lineB ? line(request.lineA) : `${line(request.lineA)} and ${line(request.lineB)}`;
        sections.push({group: 'requests', title: `Differing request ${index + 1}, ${lines}`, rows: request.entries, alike: request.alike || []});
    }
    for (const section of sections) section.alike = section.alike.map((row) => ({name: row.name, a: row.value, b: row.value, same: true}));
    return {names: ['A', 'B'], texts: [diff.a, diff.b], sections};
}

// For values of two types the types are shown.
function comparedText(side, other, isCut) {
    if (!side) return null;
    const values = valueText(side.values) + (isCut ? ' ...' : '');
    return other && other.type !== side.type ? `${side.type} ${values}` : values;
}

// Compares a phone and the library.
function comparedSides(compare) {
    const rowOf = (entry) => {
        const from = Object.entries(entry.parameters || {}).map(([key, value]) => `${key}=${value}`).join(' ');
        return {name: entry.tag, a: comparedText(entry.there, entry.here, entry.cut), b: comparedText(entry.here, entry.there), same: entry.comparison === 'same',
            from, reason: entry.reason || '', line: entry.line, types: [...new Set([entry.there, entry.here].filter(Boolean).map((side) => side.type))].join(' and '), cut: entry.cut};
    };
    const section = (group, title, entries) => {
        const rows = entries.map(rowOf);
        return {group, title, rows: rows.filter((row) => !row.same), alike: rows.filter((row) => row.same)};
    };
    const sections = [section('library', 'Entries of the library', compare.entries.filter((entry) => entry.library)),
        section('others', 'Entries that the library never writes', compare.entries.filter((entry) => !entry.library))];
    return {names: ['there', 'here'], texts: [`the phone: ${compare.file}, camera ${compare.camera}, ${compare.array} (line ${compare.line})`, `the library: ${compare.here}`],
        sections: sections.filter((each) => each.rows.length + each.alike.length > 0), hasReasons: true,
        note: compare.otherArrays.length ? `The dump also has: ${compare.otherArrays.join(', ')}. --array chooses one.` : ''};
}

function compareBadges(compare) {
    if (!compare) return [];
    const {same, different, onlyThere, onlyHere} = compare.counts;
    return [badge(different ? 'warn' : 'good', `${different} different`), badge(onlyThere ? 'bad' : 'good', `${onlyThere} only there`),
        badge(onlyHere ? 'info' : 'good', `${onlyHere} only here`), badge('plain', `${same} same`)];
}

class DifferenceView {
    // `sides`: names and texts of both sides, and sections with their rows.
    constructor(sides) {
        this.sides = sides;
        this.text = '';
        this.alike = {name: 'alike', label: 'Show what is alike', on: false};
        this.sections = sides.sections;
        this.choices = this.groupsOf(this.sections);
        this.list = new VirtualList('Differences', 30, (row) => this.rowContent(row), (row) => this.showDetails(row));
        this.details = el('aside', {class: 'details wide', 'aria-live': 'polite', 'aria-label': 'Details'});
        this.summary = el('p', {class: 'muted', 'aria-live': 'polite'});
        const refresh = () => this.filter();
        const side = (index) => el('span', {class: 'side'}, badge('info', sides.names[index]));
        this.element = el('section', {class: `difference${sides.hasReasons ? ' reasons' : ''}`},
            el('div', {class: 'tools'}, searchField('Search names and values', (text) => {
                this.text = text;
                this.filter();
            }), toggles('Sections', this.choices, refresh), toggles('Rows', [this.alike], refresh)),
            el('ul', {class: 'plain'}, sides.names.map((name, index) => el('li', {}, badge('info', name), ` ${sides.texts[index]}`)), sides.note ? el('li', {class: 'muted'}, sides.note) : null), this.summary,
            el('div', {class: 'row sides', role: 'presentation'}, el('span', {class: 'name'}, ''), side(0), side(1), sides.hasReasons ? el('span', {class: 'why'}, 'parameter and reason') : null),
            this.list.element, this.details);
        this.filter();
        this.showDetails(null);
    }

    // All requests are one entry of the list.
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
            const found = [...section.rows, ...(this.alike.on ? section.alike : [])].filter((row) => this.matches(row)).sort((a, b) => (a.name < b.name ? -1 : 1));
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
        return this.text === '' || [row.name, factText(row.a), factText(row.b), row.from, row.reason].some((text) => String(text || '').toLowerCase().includes(this.text));
    }

    rowContent(row) {
        if (row.heading !== undefined) return [el('h3', {}, row.heading, el('span', {class: 'count'}, row.count))];
        const side = (fact) => el('code', {class: `side${fact === null ? ' none' : ''}`}, fact === null ? 'absent' : fact === '' ? 'empty' : fact);
        return [el('code', {class: 'name', title: row.name}, shortName(row.name)), side(factText(row.a)), side(factText(row.b)),
            this.sides.hasReasons ? el('span', {class: 'why', title: [row.from, row.reason].filter(Boolean).join('; ')}, row.from ? el('code', {}, row.from) : null, row.from && row.reason ? '; ' : '', row.reason) : null];
    }

    showDetails(row) {
        this.details.hidden = !row;
        if (!row) return;
        const text = (fact) => el('code', {}, factText(fact) === null ? 'absent' : factText(fact));
        const [a, b] = this.sides.names;
        this.details.replaceChildren(el('h2', {}, shortName(row.name)), facts([['Name', el('code', {}, row.name)], ['In', row.section], [a, text(row.a)], [b, text(row.b)],
            ['Type', row.types], ['Parameter', row.from ? el('code', {}, row.from) : null], ['Reason', row.reason], ['Line', row.line], ['Shown', row.cut ? 'the first values only: the dump cuts the list' : null]]));
    }
}
