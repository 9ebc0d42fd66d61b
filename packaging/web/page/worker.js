// Keeps one whole version of the page and the program, so that they start without a network. A new version is fetched
// while the old one runs, and takes its place when nobody uses that any more. Their files never mix: a version is kept
// only when each of its files is the one that was packed, which it is not while somebody copies them to the server.
// Otherwise the next visit tries again.
"use strict";
importScripts("delivery.js?@VERSION@");

const version = "?@VERSION@";
const folder = registration.scope;
const cacheName = `numbrela ${folder} @VERSION@`;
const catalogue = folder + "Recursos/productos.dat";
const patience = 5000; // milliseconds for a server that may not be there

// The SHA-256 of each file that is kept, as it is unpacked. The packing puts them here, those of all pages and pictures of
// the manual, too.
const sums = {
    "": "",
    "style.css": "",
    "check.js": "",
    "delivery.js": "",
    "start.js": "",
    "links.js": "",
    "catalogue.js": "",
    "qtloader.js": "",
    "numbrela.js": "",
    "numbrela.wasm": "",
    "sizes.json": "",
    "manifest.webmanifest": "",
    "icon-192.png": "",
    "icon-512.png": "",
    "icon-maskable-512.png": "",
    "Manual/": "",
};

addEventListener("install", event => event.waitUntil(keepAll()));
addEventListener("activate", event => event.waitUntil(forgetOthers()));
addEventListener("fetch", event => {
    if (event.request.method === "GET" && event.request.url.startsWith(folder)) {
        event.respondWith(event.request.url === catalogue ? newestCatalogue() : kept(event.request));
    }
});

async function keepAll() {
    const cache = await caches.open(cacheName);
    const isWhole = (await cache.keys()).length > Object.keys(sums).length; // with the catalogue: it may be in use
    try {
        await Promise.all([
            ...Object.keys(sums).map(async name => cache.put(folder + name, keepable(await packedFile(name)))),
            firstCatalogue(),
        ]);
    } catch (error) {
        if (!isWhole) { // nor stays what an installation has left that was cut off
            await caches.delete(cacheName);
        }
        throw error;
    }
}

// Without what servers may add: a browser opens no page with an answer that it was sent on to, and keeps none that is
// said to vary with everything.
function keepable(response) {
    const copy = new Response(response.body, response);
    copy.headers.delete("Vary");
    return copy;
}

async function firstCatalogue() {
    const response = await newestCatalogue();
    if (!isAnswer(response)) {
        throw new Error(`${catalogue}: ${response.status}`);
    }
}

// Also that the school has none, with which the program starts as well.
function isAnswer(response) {
    return isCatalogue(response) || response.status === 404;
}

// What the page has just loaded need not come again, unless it came too early.
async function packedFile(name) {
    for (const from of ["default", "reload"]) {
        const response = name === "numbrela.wasm" ? await deliverProgram(version, from)
            : await fetch(folder + name + version, { cache: from });
        if (response.ok && await sumOf(response.clone()) === sums[name]) {
            return response;
        }
    }
    throw new Error(`${name} is not the one of ${version}`);
}

async function sumOf(response) {
    const sum = await crypto.subtle.digest("SHA-256", await response.arrayBuffer());
    return Array.from(new Uint8Array(sum), byte => byte.toString(16).padStart(2, "0")).join("");
}

async function forgetOthers() {
    const names = await caches.keys();
    const others = names.filter(name => name.startsWith(`numbrela ${folder} `) && name !== cacheName);
    await Promise.all(others.map(name => caches.delete(name)));
}

async function kept(request) {
    const { origin, pathname } = new URL(request.url);
    const cache = await caches.open(cacheName);
    return await cache.match(origin + pathname.replace(/\/index\.html$/, "/")) ?? fetch(request);
}

// The school's catalogue as the server has it now; the kept one if there is no server, or none in good time.
async function newestCatalogue() {
    const cache = await caches.open(cacheName);
    const old = await cache.match(catalogue);
    try {
        const response = await fetch(catalogue,
            { cache: "no-cache", signal: old ? AbortSignal.timeout(patience) : undefined });
        if (isAnswer(response)) {
            const keeping = cache.put(catalogue, keepable(response.clone()));
            await (old ? keeping.catch(() => {}) : keeping); // without room the old one is kept, and this one used
        }
        if (isAnswer(response) || !old) {
            return response;
        }
    } catch (error) {
        if (!old) {
            throw error;
        }
    }
    return old;
}
