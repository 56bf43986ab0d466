// The page of the summary: a choice above, the summary below, as it looks or as Markdown to be edited.
'use strict';

const byId = id => document.getElementById(id);
const form = byId('choice');
let field = byId('markdown');
const article = byId('summary');

let texts = {};
let title = '';
let written = '';       // the Markdown as the client wrote it
let isEditing = false;
let waitingChoice = ''; // for the answer whether an edited text may go
let shownChoice = '';   // what the text below was written for
let isStale = false;    // it has changed while nobody saw the page, or its text was edited
let shownHtml = '';
let shownLists = '';    // as the client told them
let taken = '';         // the Markdown that was last copied, mailed or inserted
let toldUnsaved = '';
let preview = Promise.resolve(); // the last one that was asked for

const isEdited = () => field.value !== written;

// What would be lost with the page; its beginning will do to recognise it.
function tellWhatIsUnsaved() {
    const unsaved = isEdited() && field.value !== taken ? field.value.slice(0, 200) : '';
    if (unsaved === toldUnsaved) return;
    toldUnsaved = unsaved;
    tellUnsaved(unsaved);
}

function translate() {
    document.documentElement.lang = texts.language;
    document.title = texts.heading;
    for (const element of document.querySelectorAll('[data-text]'))
        element.textContent = texts[element.dataset.text] ?? '';
    field.setAttribute('aria-label', texts.markdown);
    article.setAttribute('aria-label', texts.heading);
}

// Those that are checked stay so, as long as they are there.
async function fillLists() {
    const lists = await summaryLists('');
    if (lists === shownLists) return;
    shownLists = lists;
    const place = byId('lists').querySelector('fieldset');
    const checked = choiceOfForm().lists;
    const focused = place.contains(document.activeElement) ? document.activeElement.value : null;
    place.replaceChildren();
    for (const {id, name} of JSON.parse(lists)) {
        const label = document.createElement('label');
        const box = Object.assign(document.createElement('input'), {type: 'checkbox', name: 'lists', value: id});
        const words = document.createElement('span');
        words.textContent = name;
        box.checked = checked.includes(id);
        label.append(box, words);
        place.append(label);
        if (id === focused) box.focus();
    }
    showChoice();
}

function setChoice(choice) {
    form.range.value = choice.range;
    form.from.value = choice.from;
    form.to.value = choice.to;
    form.group.value = choice.group;
    for (const name of ['lists', 'statuses', 'fields'])
        for (const box of form.querySelectorAll(`input[name=${name}]`))
            box.checked = choice[name].includes(box.value);
    showChoice();
}

function choiceOfForm() {
    const checked = name =>
        [...form.querySelectorAll(`input[name=${name}]:checked`)].map(box => box.value);
    return {
        range: form.range.value, from: form.from.value, to: form.to.value, group: form.group.value,
        lists: checked('lists'), statuses: checked('statuses'), fields: checked('fields')
    };
}

function showChoice() {
    for (const label of form.querySelectorAll('.days'))
        label.hidden = form.range.value !== 'days';
    const names = [...form.querySelectorAll('input[name=lists]:checked')]
        .map(box => box.parentElement.textContent);
    byId('chosenLists').textContent = names.length ? names.join(', ') : texts.allLists;
}

function ask(choice) {
    byId('edited').hidden = true;
    waitingChoice = choice;
    requestSummary(choice);
}

// Who is typing a date goes on with it.
function askWhetherToWriteAnew(place = document.activeElement) {
    byId('edited').hidden = false;
    if (place?.type !== 'date') byId('keep').focus();
}

// What the person has written is not lost without a word.
function choose(event) {
    showChoice();
    waitingChoice = JSON.stringify(choiceOfForm());
    if (isEdited()) askWhetherToWriteAnew(event.target);
    else ask(waitingChoice);
}

// One after the other: the client answers each, but does not say which.
function showPreview() {
    preview = preview.then(async () => {
        const made = new Promise(resolve => window.addEventListener('previewMade', resolve, {once: true}));
        const markdown = field.value;
        requestPreview(markdown);
        const html = (await made).detail;
        if (isEdited() || field.value === markdown) showHtml(html); // else another summary is there already
    });
    return preview;
}

async function setEditing(edits) {
    isEditing = edits;
    byId('edit').setAttribute('aria-pressed', edits);
    byId('edit').textContent = edits ? texts.preview : texts.edit;
    if (!edits) await showPreview();
    field.hidden = !edits;
    article.hidden = edits;
    (edits ? field : article).focus();
}

// Before anything leaves the page: what is printed is what was typed.
async function brought() {
    if (isEditing) await showPreview();
    return field.value;
}

function closeMenu() {
    byId('copies').hidden = true;
    byId('copy').setAttribute('aria-expanded', 'false');
}

async function copy(how) {
    closeMenu();
    const markdown = await brought();
    if (how === 'copyRichText')
        await copyRichText(`<html><head><meta charset="utf-8"></head><body>${article.innerHTML}</body></html>`);
    else
        await window[how](markdown);
    take(markdown);
    toast(texts.copied);
}

function take(markdown) {
    taken = markdown;
    tellWhatIsUnsaved();
}

// Where a person is in the text stays, above all where it is the same. The field is a new one: the steps of
// Undo of the old one would make something else of the other text.
function writeField(markdown) {
    if (field.value === markdown) return;
    const {selectionStart, selectionEnd, scrollTop} = field;
    const hasFocus = document.activeElement === field;
    const fresh = field.cloneNode();
    fresh.value = markdown;
    field.replaceWith(fresh);
    field = fresh;
    if (!isEditing) return;
    if (hasFocus) field.focus({preventScroll: true});
    field.setSelectionRange(selectionStart, selectionEnd);
    field.scrollTop = scrollTop;
}

function showHtml(html) {
    if (html === shownHtml) return;
    shownHtml = html;
    article.innerHTML = html;
}

window.addEventListener('summaryRead', event => {
    const summary = JSON.parse(event.detail);
    if (summary.error !== undefined) return toast(summary.error);
    if (isEdited()) { // typed meanwhile
        isStale = waitingChoice === shownChoice; // nobody has chosen anything else
        if (!isStale) askWhetherToWriteAnew();
        return;
    }
    isStale = false;
    shownChoice = waitingChoice;
    title = summary.title;
    written = summary.markdown;
    writeField(written);
    showHtml(summary.html);
    byId('edit').disabled = false;
    byId('edited').hidden = true;
    byId('shortened').hidden = !summary.isShortened;
    tellWhatIsUnsaved();
    tellReady();
});

// What it is of has changed, or the day has.
async function refresh() {
    if (waitingChoice === '') return;
    isStale = document.hidden || isEdited();
    if (document.hidden) return;
    await fillLists();
    if (isEdited()) return;
    ask(JSON.stringify(choiceOfForm()));
}

window.addEventListener('summaryChanged', refresh);
document.addEventListener('visibilitychange', () => {
    if (isStale) refresh();
});

document.addEventListener('input', event => {
    if (event.target !== field) return;
    tellWhatIsUnsaved();
    // The edits were taken back: the question, and what has changed since, can be answered now.
    if (!isEdited() && (isStale || !byId('edited').hidden)) refresh();
});
form.addEventListener('submit', event => event.preventDefault());
form.addEventListener('change', choose);
byId('keep').addEventListener('click', () => {
    byId('edited').hidden = true;
    waitingChoice = shownChoice; // what the text is of
    setChoice(JSON.parse(shownChoice));
    (isEditing ? field : article).focus();
});
byId('rewrite').addEventListener('click', () => {
    written = field.value; // it may go
    ask(waitingChoice);
    (isEditing ? field : article).focus();
});
byId('edit').addEventListener('click', () => setEditing(!isEditing));
byId('copy').addEventListener('click', () => {
    const opens = byId('copies').hidden;
    byId('copies').hidden = !opens;
    byId('copy').setAttribute('aria-expanded', opens);
    if (opens) byId('copies').querySelector('button').focus();
});
for (const button of document.querySelectorAll('[data-copy]'))
    button.addEventListener('click', () => copy(button.dataset.copy));
byId('exportPdf').addEventListener('click', async () => exportPdf(await brought()));
byId('exportPNG').addEventListener('click', async () => exportPNG(await brought()));
byId('exportMail').addEventListener('click', async () => {
    const summary = await brought();
    if (await exportMail(JSON.stringify({title, summary})) === '') take(summary);
});
byId('insertSummary').addEventListener('click', async () => insertSummary(await brought()));
byId('cancel').addEventListener('click', () => closeWindow(''));
document.addEventListener('click', event => {
    if (!event.target.closest('.menu')) closeMenu();
    for (const details of document.querySelectorAll('details[open]'))
        if (!details.contains(event.target)) details.open = false;
});
document.addEventListener('keydown', event => {
    if (event.key === 'Escape' && !event.isComposing && !event.repeat) {
        const open = document.querySelector('details[open]');
        if (!byId('copies').hidden) {
            closeMenu();
            byId('copy').focus();
        } else if (open) {
            open.open = false;
            open.querySelector('summary').focus();
        } else if (window.closeWindow) {
            closeWindow('');
        }
    } else if (!byId('copies').hidden && (event.key === 'ArrowDown' || event.key === 'ArrowUp')) {
        const items = [...byId('copies').querySelectorAll('button')];
        const step = event.key === 'ArrowDown' ? 1 : items.length - 1;
        items[(items.indexOf(document.activeElement) + step) % items.length].focus();
        event.preventDefault();
    }
});

openSummary('').then(async text => {
    const page = JSON.parse(text);
    texts = page.texts;
    translate();
    await fillLists();
    setChoice(page.choice);
    byId('insertSummary').hidden = !page.canInsert;
    byId('cancel').hidden = !window.closeWindow;
    ask(JSON.stringify(choiceOfForm()));
});
