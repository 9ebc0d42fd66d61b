// How the program and the catalogue come over the wire; the page and its service worker share this.
"use strict";

// The program, unpacked. A server that sends it as it lies there, because it knows nothing of compression, is asked for
// the compressed file instead, and the page unpacks it: 4.5 MB instead of 14.
async function deliverProgram(version, cache = "default") {
    const sending = new AbortController();
    const plain = await fetch("numbrela.wasm" + version, { cache, signal: sending.signal });
    if (!plain.ok || plain.headers.has("Content-Encoding") || typeof DecompressionStream !== "function") {
        return plain;
    }
    sending.abort();
    const packed = await fetch("numbrela.wasm.gz" + version, { cache });
    if (!packed.ok) {
        return fetch("numbrela.wasm" + version, { cache });
    }
    return packed.headers.has("Content-Encoding") // and so the browser has unpacked it
        ? packed
        : new Response(packed.body.pipeThrough(new DecompressionStream("gzip")));
}

// Whether a server has given the school's catalogue, and not a page in its place, such as one that asks who it is.
function isCatalogue(response) {
    return response.ok && !/^text\/html/i.test(response.headers.get("Content-Type"));
}
