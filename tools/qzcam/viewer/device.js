// SPDX-License-Identifier: Apache-2.0
// The Device view: every tag that the library looks up, by feature, with its finding.

const CHECK_WORDS = {
    fine: ['fine', 'declared as the library needs it'],
    mistyped: ['mistyped', 'declared with another element type: the library cannot use it'],
    malformed: ['malformed', 'the library cannot use the count or the values of the static entry'],
    doubtful: ['doubtful', 'the library accepts the entry, but probably not in the intended sense'],
    missing: ['missing', 'not declared: the feature is left out'],
    noEntry: ['no entry', 'declared, but this camera has no such static entry'],
};
const USE_WORDS = {request: 'written into requests', capability: 'read from the static entries', result: 'read from results', inspection: 'shown by inspection'};

class DeviceView {
    constructor(check, rows) {
        this.check = check;
        this.rows = rows;
        this.feature = null;
        this.text = '';
        this.all = check.features.flatMap((each) => each.tags.map((tag) => ({...tag, feature: each.feature})));
        this.verdicts = Object.keys(check.counts).map((name) => ({name, label: CHECK_WORDS[name] ? CHECK_WORDS[name][0] : name,
            count: check.counts[name], tone: CHECK_TONES[name], on: true}));
        this.uses = [...new Set(this.all.map((tag) => tag.use))].map((name) => ({name, label: name, on: true,
            count: this.all.filter((tag) => tag.use === name).length}));
        this.list = new VirtualList('Tags', 34, (row) => this.rowContent(row), (row) => this.showDetails(row));
        this.details = el('aside', {class: 'details', 'aria-live': 'polite', 'aria-label': 'Details'});
        this.summary = el('p', {class: 'muted', 'aria-live': 'polite'});
        this.features = el('ul', {class: 'features'});
        const refresh = () => this.filter();
        this.element = el('section', {class: 'device'},
            el('div', {class: 'tools'}, searchField('Search tags, entries, keys', (text) => {
                this.text = text;
                this.filter();
            }), toggles('Findings', this.verdicts, refresh), toggles('Uses', this.uses, refresh)),
            el('div', {class: 'columns three'}, el('nav', {'aria-label': 'Features'}, this.features),
                el('div', {class: 'middle'}, this.summary, this.list.element), this.details));
        this.drawFeatures();
        this.filter();
        this.showDetails(null);
    }

    drawFeatures() {
        const item = (name, tags) => {
            const button = el('button', {type: 'button', class: 'feature', 'aria-pressed': String(this.feature === name), onclick: () => {
                this.feature = this.feature === name ? null : name;
                this.drawFeatures();
                this.filter();
            }}, el('span', {class: 'name'}, name || 'All features'), el('span', {class: 'count'}, tags.length), stackedBar(tags));
            return el('li', {}, button);
        };
        this.features.replaceChildren(item(null, this.all), ...this.check.features.map((each) => item(each.feature, each.tags)));
    }

    filter() {
        const verdicts = new Set(this.verdicts.filter((each) => each.on).map((each) => each.name));
        const uses = new Set(this.uses.filter((each) => each.on).map((each) => each.name));
        const found = this.all.filter((tag) => verdicts.has(tag.verdict) && uses.has(tag.use) &&
            (this.feature === null || tag.feature === this.feature) && this.matches(tag));
        this.summary.textContent = `${found.length.toLocaleString('en')} of ${this.all.length.toLocaleString('en')} tags`;
        const rows = [];
        for (const tag of found) {
            if (rows.length === 0 || rows[rows.length - 1].feature !== tag.feature) rows.push({heading: tag.feature, feature: tag.feature});
            rows.push({...tag, tone: CHECK_TONES[tag.verdict]});
        }
        this.list.chosen = -1;
        this.list.show(rows);
    }

    matches(tag) {
        return this.text === '' || [tag.tag, tag.feature, tag.what || '', ...tag.for].some((text) => text.toLowerCase().includes(this.text));
    }

    rowContent(row) {
        if (row.heading !== undefined) return [el('h3', {}, row.heading)];
        return [badge(CHECK_TONES[row.verdict], CHECK_WORDS[row.verdict] ? CHECK_WORDS[row.verdict][0] : row.verdict),
            el('code', {class: 'name', title: row.tag}, shortName(row.tag)), el('span', {class: 'muted use'}, row.use),
            el('span', {class: 'what muted'}, row.what || row.for.join(', '))];
    }

    showDetails(row) {
        if (!row) return this.details.replaceChildren(el('h2', {}, 'Details'), el('p', {class: 'muted hint'}, 'Choose a tag to see its facts.'), ...this.unused());
        const [word, meaning] = CHECK_WORDS[row.verdict] || [row.verdict, ''];
        const counts = typeof row.counts === 'number' ? counted(row.counts, 'value') : row.counts;
        this.details.replaceChildren(el('h2', {}, shortName(row.tag)), el('p', {}, badge(CHECK_TONES[row.verdict], word), ` ${meaning}`),
            facts([['Tag', el('code', {}, row.tag)], ['Feature', row.feature], ['Use', USE_WORDS[row.use] || row.use],
                ['Declared', row.declared || 'not declared'], ['Expected', `${row.expected}, ${counts}`],
                ['Values', row.values ? valueText(row.values) : null], ['For', row.for.length ? row.for.join(', ') : null],
                ['Consequence', row.what || null]]), ...this.rowFacts(row));
    }

    // The library's rows about the tag, if the page has them.
    rowFacts(row) {
        if (!this.rows) return [];
        const found = ['parameters', 'published', 'results'].flatMap((section) => (this.rows[section] || [])
            .filter((each) => each.entries.some((entry) => entry.tag === row.tag)));
        return found.map((each) => el('div', {class: 'row-facts'}, el('h3', {}, each.setter || each.getter || each.handler),
            facts([['Keys', each.keys ? each.keys.map((key) => key.key).join(', ') : null],
                ['Words', (each.words || []).map((word) => `${word.from} → ${word.to}`).join(', ')],
                ['Any other text', each.otherwise], ['Message', each.message], ['Conditions', (each.conditions || []).join('; ')],
                ['On failure', (each.failures || []).join('; ')]])));
    }

    unused() {
        if (!this.check.unused || this.check.unused.length === 0) return [];
        return [el('h3', {}, 'Declared beside them, but never looked up'),
            el('ul', {class: 'plain'}, this.check.unused.map((name) => el('li', {}, el('code', {}, name))))];
    }
}

// The share of each finding in all tags.
function stackedBar(tags) {
    const order = ['bad', 'warn', 'plain', 'good'];
    const bar = svg('svg', {class: 'stack', viewBox: '0 0 100 4', preserveAspectRatio: 'none', 'aria-hidden': 'true'});
    let x = 0;
    for (const tone of order) {
        const width = tags.filter((tag) => CHECK_TONES[tag.verdict] === tone).length / Math.max(1, tags.length) * 100;
        if (width > 0) bar.append(svg('rect', {class: tone, x, y: 0, width, height: 4}));
        x += width;
    }
    return bar;
}

// Shows several cameras of one device, one at a time.
class CamerasView {
    constructor(cameras, rows) {
        this.body = el('div', {class: 'camera'});
        const show = (index) => this.body.replaceChildren(el('div', {class: 'badges'}, checkBadges(cameras[index])), new DeviceView(cameras[index], rows).element);
        const choice = el('select', {id: 'camera', onchange: () => show(Number(choice.value))},
            cameras.map((camera, index) => el('option', {value: index}, camera.camera)));
        this.element = el('section', {class: 'cameras'}, el('div', {class: 'tools'}, el('label', {for: 'camera'}, 'Camera'), choice), this.body);
        show(0);
    }
}
