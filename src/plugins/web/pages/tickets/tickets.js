// The page for a report to the makers: exactly what a report would hold, to be read and taken along by hand.
'use strict';

document.getElementById('close').addEventListener('click', () => closeWindow(''));
document.addEventListener('keydown', event => {
    if (event.key === 'Escape' && !event.repeat) closeWindow('');
});

const report = document.getElementById('report');

async function fill() {
    const texts = JSON.parse(await ticketTexts(''));
    document.title = texts.heading;
    document.documentElement.lang = texts.language;
    for (const element of document.querySelectorAll('[data-text]'))
        element.textContent = texts[element.dataset.text] ?? '';
    report.setAttribute('aria-label', texts.heading);
    const prepared = new Promise(resolve => window.addEventListener('logPrepared', resolve, {once: true}));
    await prepareLog('');
    await prepared;
    const [device, log] = await Promise.all([getDeviceInfo(''), uploadLog('')]);
    report.value = `${device}\n\n${log}`;
    report.scrollTop = report.scrollHeight;
    tellReady();
    document.getElementById('copy').addEventListener('click', async () => {
        await copyReport(report.value);
        toast(texts.copied);
    });
}

fill();
