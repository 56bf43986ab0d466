// What the client does for the page: a function for each method, of one text, which answers a promise of
// another. What the client tells is an event of the window, with its text in `detail`.
(() => {
    'use strict';
    const ready = new Promise(resolve => {
        new QWebChannel(qt.webChannelTransport, channel => {
            const bridge = channel.objects.bridge;
            bridge.arrived.connect((name, text) =>
                window.dispatchEvent(new CustomEvent(name, {detail: text})));
            resolve(bridge);
        });
    });
    // What the page shows at first has been painted.
    window.tellReady = () =>
        requestAnimationFrame(() => requestAnimationFrame(() => ready.then(bridge => bridge.tellReady())));
    for (const name of METHOD_NAMES)
        window[name] = text =>
            ready.then(bridge => new Promise(resolve =>
                bridge.call(name, text === undefined ? '' : String(text), resolve)));
})();
