// Keeps one whole version of the page and the program, so that they start without a network. A new version is fetched
// while the old one runs, and takes its place when nobody uses that any more; their files never mix.
"use strict";
importScripts("delivery.js?@VERSION@");

const version = "?@VERSION@";
const folder = registration.scope;
const cacheName = `numbrela ${folder} @VERSION@`;
const catalogue = folder + "Recursos/productos.dat";
const patience = 5000; // milliseconds for a server that may not be there

const files = ["", "style.css", "check.js", "delivery.js", "start.js", "links.js", "catalogue.js", "qtloader.js",
    "numbrela.js", "sizes.json", "manifest.webmanifest", "icon-192.png", "icon-512.png", "icon-maskable-512.png"];

addEventListener("install", event => event.waitUntil(keepAll()));
addEventListener("activate", event => event.waitUntil(forgetOthers()));
addEventListener("fetch", event => {
    if (event.request.method === "GET" && event.request.url.startsWith(folder)) {
        event.respondWith(event.request.url === catalogue ? newestCatalogue() : kept(event.request));
    }
});

async function keepAll() {
    const cache = await caches.open(cacheName);
    const keep = async (name, response) => {
        if (!response.ok) {
            throw new Error(`${name}: ${response.status}`);
        }
        await cache.put(folder + name, response);
    };
    await Promise.all([
        ...files.map(async name => keep(name, await fetch(folder + name + version))),
        keep("numbrela.wasm", await deliverProgram(version)),
        newestCatalogue(),
    ]);
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
        if (response.ok) {
            await cache.put(catalogue, response.clone());
        }
        if (response.ok || response.status === 404 || !old) {
            return response;
        }
    } catch (error) {
        if (!old) {
            throw error;
        }
    }
    return old;
}
