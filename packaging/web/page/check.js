// Says so if this browser cannot run the program. Written so that very old ones understand it; the others' newest need
// is WebAssembly that is compiled while it arrives, which no browser had that lacked anything else the page uses.
var browserIsFit = typeof WebAssembly === "object" && typeof WebAssembly.compileStreaming === "function"
    && typeof Array.prototype.at === "function";
var unfitText = "Este navegador no puede abrir Numbrela: hace falta una versión actual de Chrome, Edge, Firefox o Safari.";
if (!browserIsFit) {
    document.getElementById("text").textContent = unfitText;
}
