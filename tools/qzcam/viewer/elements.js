// SPDX-License-Identifier: Apache-2.0
// Creates elements of the page. Texts become text nodes, so that nothing from a file is read as HTML.

const SVG = 'http://www.w3.org/2000/svg';

function fill(node, attributes, children) {
    for (const [name, value] of Object.entries(attributes || {})) {
        if (value === undefined || value === null || value === false) continue;
        if (name.startsWith('on')) node.addEventListener(name.slice(2), value);
        else node.setAttribute(name, value === true ? '' : String(value));
    }
    for (const child of children.flat(3)) {
        if (child === undefined || child === null || child === false) continue;
        node.append(child instanceof Node ? child : document.createTextNode(visible(child)));
    }
    return node;
}

const el = (name, attributes, ...children) => fill(document.createElement(name), attributes, children);
const svg = (name, attributes, ...children) => fill(document.createElementNS(SVG, name), attributes, children);

// Shows the code of characters that do not print or that change the direction of writing.
function visible(text) {
    return String(text).replace(/[\u0000-\u0008\u000b-\u001f\u007f-\u009f\u200b-\u200f\u2028-\u202e\u2060-\u2069\ufeff]/g,
        (c) => '\\u' + c.charCodeAt(0).toString(16).padStart(4, '0'));
}

const shortName = (tag) => String(tag).replace(/^com\.ambrix\.(capture\.metadata|device\.capabilities)\./, '');

function valueText(values) {
    if (values === undefined || values === null) return 'none';
    if (!Array.isArray(values)) return String(values);
    if (values.length === 0) return 'empty';
    return values.map((value) => (Array.isArray(value) ? value.join('/') : String(value))).join(' ');
}

const counted = (count, one, many) => `${count.toLocaleString('en')} ${count === 1 ? one : many || one + 's'}`;

// A small label with a colour: good, warn, bad, info or plain.
const badge = (tone, text) => el('span', {class: `badge ${tone}`}, text);

// A list of pairs: a name and a text or element. Pairs without a second part are left out.
function facts(pairs) {
    const rows = pairs.filter(([, value]) => value !== undefined && value !== null && value !== '');
    return el('dl', {class: 'facts'}, rows.map(([name, value]) => [el('dt', {}, name), el('dd', {}, value)]));
}

// Calls `draw` once before the next frame, even if it is requested several times.
function onceAFrame(draw) {
    let waiting = false;
    return () => {
        if (waiting) return;
        waiting = true;
        requestAnimationFrame(() => {
            waiting = false;
            draw();
        });
    };
}

// While the page is printed, views draw everything instead of the visible part.
const paper = {on: false};
addEventListener('beforeprint', () => { paper.on = true; });
addEventListener('afterprint', () => { paper.on = false; });

function forPaper(draw) {
    addEventListener('beforeprint', draw);
    addEventListener('afterprint', draw);
}

// A row of buttons. Each button is on or off.
function toggles(label, choices, onChange) {
    const buttons = choices.map((choice) => {
        const button = el('button', {
            type: 'button', class: `toggle ${choice.tone || ''}`, 'aria-pressed': String(choice.on), 'data-name': choice.name,
            onclick: () => {
                choice.on = !choice.on;
                button.setAttribute('aria-pressed', String(choice.on));
                onChange(choice);
            },
        }, choice.label, choice.count === undefined ? null : el('span', {class: 'count'}, choice.count.toLocaleString('en')));
        return button;
    });
    return el('div', {class: 'toggles', role: 'group', 'aria-label': label}, buttons);
}

// A search field. It reports the typed text once for each frame.
function searchField(label, onInput) {
    const field = el('input', {type: 'search', placeholder: label, 'aria-label': label, spellcheck: 'false', autocomplete: 'off'});
    field.addEventListener('input', onceAFrame(() => onInput(field.value.trim().toLowerCase())));
    return field;
}
