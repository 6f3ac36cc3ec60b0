// SPDX-License-Identifier: Apache-2.0
// The views of `show`: the contents of an input.

const lineText = (line) => (line ? `line ${line}` : null);
const LEFT_WORDS = {halText: 'text of the HAL', otherBlock: 'block of another vendor', mistyped: 'entry of another type than its tag', section: 'other section',
    damaged: 'damaged entry', tooManyTags: 'vendor tag beyond the limit', repeatedTag: 'repeated vendor tag'};
const HARMLESS = ['section', 'halText', 'otherBlock'];
const VENDOR = /^com\.|unknown/;

// The findings about the input, which come first.
function findingRows(show) {
    const row = (group, tone, what, name, line, more) => ({group, badge: [tone, what], name, line, title: name,
        facts: () => [['Text', el('code', {}, name)], ['Line', line || null], ...(more || [])]});
    const rows = [];
    for (const fault of show.faults) {
        const words = {nameOfTwoTypes: 'one name, two types', numberOfTwoNames: 'one number, two names', lengthAgainstType: 'wrong length'};
        rows.push({...row('faults', 'bad', words[fault.kind] || fault.kind, fault.text, fault.line, [['Also in', lineText(fault.otherLine)], ['Consequence', fault.consequence]]), value: fault.consequence});
    }
    for (const cut of show.cuts) rows.push(row('cuts', 'warn', 'cut', cut.text, cut.line));
    for (const each of show.differences) rows.push(row('differences', 'warn', 'other number', each.text, each.line));
    for (const left of show.left) {
        for (const name of left.names) {
            const kind = LEFT_WORDS[left.kind] || left.kind.replace(/[A-Z]/g, (letter) => ` ${letter.toLowerCase()}`);
            rows.push({...row('left', HARMLESS.includes(left.kind) ? 'plain' : 'warn', 'not used', name.name, name.line, [['Kind', kind], ['Last line', name.lastLine === name.line ? null : name.lastLine], ['Lines', name.count]]), value: kind});
        }
    }
    for (const each of show.messages) rows.push(row('messages', 'warn', 'message', each.text, each.line));
    return rows;
}

const FINDING_GROUPS = [['faults', 'Faults of the HAL'], ['cuts', 'Where the text is cut'], ['differences', 'Other numbers than announced'],
    ['messages', 'Messages of the service'], ['left', 'Left: of no use here']].map(([id, label]) => ({id, label}));

const present = (groups, rows) => groups.filter((group) => rows.some((row) => row.group === group.id));

function findingsView(rows) {
    return new BrowseView({label: 'Findings', many: ['finding'], what: 'findings', rows, groups: present(FINDING_GROUPS, rows)});
}

const arrayTitle = (array) => `${array.camera ? `camera ${array.camera}, ` : ''}${array.name}${array.previousSession ? ' of an earlier session' : ''}`;

function entryRow(entry, group) {
    const kinds = [VENDOR.test(entry.tag) ? 'vendor' : 'platform'];
    const type = `${entry.type}[${entry.count}]`;
    if (entry.wrong) kinds.push('damaged');
    const words = (entry.unknownWords || []).map((word) => word.word);
    return {group, kinds, title: entry.tag, name: shortName(entry.tag), value: `${valueText(entry.values)}${entry.cut ? ' ...' : ''}`, line: entry.line,
        badge: entry.wrong ? ['bad', 'damaged'] : ['plain', type], words: [entry.tag, ...words],
        facts: () => [['Tag', el('code', {}, entry.tag)], ['Number', `0x${entry.id.toString(16)}`], ['Type', type], ['Values', el('code', {}, valueText(entry.values))],
            ['Shown', entry.cut ? 'the first values only: the dump cuts the list' : null], ['Unknown words', words.join(', ')], ['Damaged', entry.wrong ? `line ${entry.wrong.line}: ${entry.wrong.what}` : null], ['Line', entry.line]]};
}

function arraysView(data) {
    const rows = data.arrays.flatMap((array, index) => array.entries.map((entry) => entryRow(entry, index)));
    const kinds = [['vendor', 'Vendor'], ['platform', 'Platform'], ['damaged', 'Damaged', 'bad']].map(([name, label, tone]) => ({name, label, tone, on: true}));
    return new BrowseView({label: 'Entries', many: ['entry', 'entries'], what: 'tags and values', rows, groups: data.arrays.map((array, id) => ({id, label: arrayTitle(array)})),
        kinds: kinds.filter(({name}) => rows.some((row) => row.kinds.includes(name)))});
}

const blockTitle = (block) => (block.vendorId === null ? `Block in line ${block.line}` : `Vendor id ${block.vendorId}`);

function tagsView(blocks) {
    const rows = blocks.flatMap((block, group) => block.declared.map((tag) => ({group, badge: ['plain', tag.type], name: shortName(tag.tag), title: tag.tag, words: [tag.tag], line: tag.line,
        value: `0x${tag.id.toString(16)}`, facts: () => [['Tag', el('code', {}, tag.tag)], ['Number', `0x${tag.id.toString(16)}`], ['Type', tag.type], ['Line', tag.line]]})));
    return new BrowseView({label: 'Vendor tags', many: ['vendor tag'], what: 'tags, types and numbers', rows, groups: blocks.map((block, id) => ({id, label: blockTitle(block)}))});
}

function parametersView(lists) {
    const rows = lists.flatMap((list, group) => list.parameters.map((each) => ({group, name: each.key, value: each.value, line: each.line, badge: each.cut ? ['warn', 'cut'] : undefined,
        facts: () => [['Value', el('code', {}, each.value)], ['Cut', each.cut ? 'the text ends before the value does' : null], ['From', list.where], ['Line', each.line], ['List', lineText(list.line)]]})));
    return new BrowseView({label: 'Parameters', many: ['parameter'], what: 'keys and values', rows, groups: lists.map((list, id) => ({id, label: list.where}))});
}

function propertiesView(values) {
    const rows = Object.entries(values).map(([name, value]) => ({group: 0, name, value, facts: () => [['Value', el('code', {}, value)]]}));
    return new BrowseView({label: 'Properties', many: ['property', 'properties'], what: 'names and values', rows, groups: []});
}

function logView(log) {
    const rows = log.tags.map((each) => {
        const levels = Object.entries(each.levels);
        const bad = each.levels.E || each.levels.F;
        return {group: 0, name: each.tag || 'lines without a tag', badge: [bad ? 'bad' : each.levels.W ? 'warn' : 'plain', counted(each.lines, 'line')], value: levels.map(([level, count]) => `${level} ${count.toLocaleString('en')}`).join('  '),
            facts: () => [['Lines', each.lines.toLocaleString('en')], ...levels.map(([level, count]) => [`Level ${level}`, count.toLocaleString('en')])]};
    });
    return new BrowseView({label: 'Log lines by tag', many: ['tag'], what: 'log tags', rows, groups: []});
}

function eventsView(show) {
    const rows = ['clients', 'events'].flatMap((group) => show[group].map(({text, line}) => ({group, name: text, line, facts: () => [['Text', el('code', {}, text)], ['Line', line]]})));
    return new BrowseView({label: 'Events', many: ['line'], what: 'lines', rows, groups: present([{id: 'clients', label: 'Clients'}, {id: 'events', label: 'Events of the service'}], rows)});
}

function foundView(data) {
    const places = [...new Set(data.found.map((each) => each.where))];
    const rows = data.found.map((each) => ({group: each.where, name: each.text.trim(), line: each.line, facts: () => [['Text', el('code', {}, each.text)], ['Belongs to', each.where], ['Line', each.line]]}));
    return new BrowseView({label: 'Found', many: ['line'], what: 'the lines found', rows, groups: places.map((id) => ({id, label: id || 'elsewhere'}))});
}

// Cameras, providers, blocks and arrays on one sheet.
class ContentsView {
    // `open` opens a view at one of its groups.
    constructor(show, open) {
        this.element = el('section', {class: 'contents'}, this.summary(show),
            sheet('Cameras', ['Camera', 'Name', 'Facing', 'Orientation', 'Level', 'Provider', 'Physical', 'Open by', 'Line'], show.cameras.map((camera) => [camera.id, el('code', {}, camera.name), camera.facing,
                camera.orientation === null ? '' : `${camera.orientation}°`, camera.level, camera.provider, camera.physical.join(', '), camera.open ? camera.client || 'somebody' : '', camera.line])),
            sheet('Numbers that open() takes', ['Number', 'Camera', 'Line'], show.open.map((each) => [each.number, each.camera, each.line])),
            sheet('Providers', ['Provider', 'Version', 'Cameras', 'Line'], show.providers.map((each) => [each.name, each.version, each.announced, each.line])),
            sheet('Vendor tags', ['Block', 'Tags', 'Announced', 'Line'], show.vendorBlocks.map((block, index) => [link(blockTitle(block), () => open('tags', index)), block.tags, block.announced, block.line])),
            sheet('Metadata arrays', ['Array', 'Camera', 'Entries', 'Announced', 'Line'], show.arrays.map((array, index) => [link(arrayTitle(array), () => open('arrays', index)), array.camera, array.entries, array.announced, array.line])),
            sheet('Tag monitors', ['Camera', 'Request events', 'Result events', '', 'Line'], show.monitors.map((each) => [each.camera, each.requests, each.results, each.previousSession ? 'of a session before' : '', each.line])),
            sheet('Parameters', ['Where', 'Parameters', 'Line'], show.parameters.map((list, index) => [link(list.where, () => open('parameters', index)), list.count, list.line])));
    }

    summary(show) {
        const {log} = show;
        return el('div', {class: 'panel'}, facts([['Input', show.input], ['Kind', `${show.kind}, ${counted(show.lines, 'line')}`], ['Read as', show.read.join(', ')], ...Object.entries(show.header),
            ['Log', log.lines ? `${counted(log.lines, 'line')}${log.from ? `, ${log.from} to ${log.to}` : ''}` : null], ['Lost', log.pruned ? counted(log.pruned, 'line') : null],
            ['Folded', log.folded ? counted(log.folded, 'line') : null], ['Properties', show.properties.count || null]]));
    }
}

const link = (text, onclick) => el('button', {type: 'button', class: 'link-button', onclick}, text);

// Returns a table, or nothing without rows. Columns without any text are left out.
function sheet(title, columns, rows) {
    if (rows.length === 0) return null;
    const isEmpty = (cell) => cell === '' || cell === null || cell === undefined;
    const shown = columns.map((name, index) => index).filter((index) => rows.some((row) => !isEmpty(row[index])));
    return el('div', {class: 'panel'}, el('h2', {}, title, el('span', {class: 'count'}, rows.length)), el('div', {class: 'sheet-scroller', tabindex: '0', role: 'region', 'aria-label': title},
        el('table', {class: 'sheet'}, el('thead', {}, el('tr', {}, shown.map((index) => el('th', {scope: 'col'}, columns[index])))),
            el('tbody', {}, rows.map((row) => el('tr', {}, shown.map((index) => (index === shown[0] ? el('th', {scope: 'row'}, row[index]) : el('td', {}, isEmpty(row[index]) ? '' : row[index])))))))));
}

function showBadges(show) {
    if (!show) return [];
    const some = (count, tone, one, many) => (count ? badge(tone, counted(count, one, many)) : null);
    return [badge('plain', show.kind), some(show.faults.length, 'bad', 'fault'), some(show.cuts.length, 'warn', 'cut'), some(show.cameras.length, 'plain', 'camera'), some(show.arrays.length, 'plain', 'array')].filter(Boolean);
}

function showViews(open) {
    const show = readData('show');
    const arrays = readData('arrays');
    const found = readData('found');
    const views = [];
    const add = (id, label, count, make) => count && views.push([id, `${label} ${count.toLocaleString('en')}`, make]);
    if (show) {
        const findings = findingRows(show);
        views.push(['contents', 'Contents', () => new ContentsView(show, open)]);
        add('findings', 'Findings', findings.length, () => findingsView(findings));
    }
    if (arrays) add('arrays', 'Entries', arrays.arrays.reduce((sum, array) => sum + array.entries.length, 0), () => arraysView(arrays));
    if (found) views.push(['found', `Found '${found.find}'`, () => foundView(found)]);
    if (!show) return views;
    add('tags', 'Vendor tags', show.vendorBlocks.reduce((sum, block) => sum + block.tags, 0), () => tagsView(show.vendorBlocks));
    add('parameters', 'Parameters', show.parameters.reduce((sum, list) => sum + list.count, 0), () => parametersView(show.parameters));
    add('properties', 'Properties', show.properties.count, () => propertiesView(show.properties.values));
    add('log', 'Log tags', show.log.tags.length, () => logView(show.log));
    add('events', 'Events', show.clients.length + show.events.length, () => eventsView(show));
    return views;
}
