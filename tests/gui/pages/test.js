'use strict';

// What each thing that a page may try comes to, reported in one JSON object.
(async () => {
    const found = {};
    const failing = async attempt => {
        try {
            return await attempt();
        } catch (error) {
            return error.constructor.name;
        }
    };
    found.toast = await toast('Hello');
    found.device = JSON.parse(await getDeviceInfo());
    found.insertSummary = await insertSummary('# Week');
    found.copyMarkdown = await copyMarkdown('**Week**');
    found.copyPlainText = await copyPlainText('**Week**');
    found.copyRichText = await copyRichText('<html><body><b>Week</b></body></html>');
    found.exportPdf = await exportPdf();
    found.exportPNG = await exportPNG();
    found.exportMail = await exportMail('{"title": "Week", "summary": "- a"}');
    found.noJson = await exportMail('no JSON');
    found.uploadLog = await uploadLog();
    found.number = await copyMarkdown(7);
    found.object = await copyMarkdown({});
    found.long = await copyMarkdown('x'.repeat(10000000));

    found.unknown = await failing(() => noSuchMethod('x'));
    found.deleted = typeof deleteLater;
    for (const garbage of ['no JSON', '[]', '{"type": 6}', '{"type": 99, "id": 1}',
        '{"type": 6, "object": "bridge", "method": 9999, "args": [1, 2, 3], "id": 77}',
        '{"type": 6, "object": "nobody", "method": "x", "args": [], "id": 78}'])
        qt.webChannelTransport.send(garbage);
    const channel = await new Promise(resolve => new QWebChannel(qt.webChannelTransport, resolve));
    found.objects = Object.keys(channel.objects);
    found.otherName = await new Promise(resolve => channel.objects.bridge.call('deleteLater', 'x', resolve));
    found.otherSlot = await new Promise(resolve => channel.objects.bridge.call('setObjectName', 'x', resolve));

    for (let i = 0; i < 10000; ++i)
        toast(`${i}`);
    found.busy = await toast('last');

    found.fetched = await failing(() => fetch('https://example.org/'));
    found.ownFile = await failing(() => fetch('file:///etc/hostname'));
    found.opened = window.open('https://example.org/') === null;
    const frame = document.createElement('iframe');
    frame.src = 'https://example.org/';
    document.body.append(frame);
    location.href = 'https://example.org/away';
    await new Promise(resolve => setTimeout(resolve, 300));
    found.address = location.href;
    report(JSON.stringify(found));
})();
