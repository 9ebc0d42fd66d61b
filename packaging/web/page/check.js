// Says so if the program cannot be started here. Written so that very old browsers understand it.

// Of what the page uses, the newest of each browser. All else is older: the permission for WebAssembly in the head of
// index.html, for one, is understood by all that have AbortSignal.timeout and TransformStream.
var isFit = typeof AbortSignal === "function" && typeof AbortSignal.timeout === "function"
    && typeof TransformStream === "function"
    && typeof WebAssembly === "object" && typeof WebAssembly.compileStreaming === "function"
    && typeof HTMLDialogElement === "function";
var unfitText = "Este navegador no puede abrir Numbrela: hace falta una versión actual de Chrome, Edge, Firefox o Safari.";
var incompleteText = "Numbrela no se ha podido cargar: no hay conexión, o en el servidor falta algo.";

// Why nothing is to be started, or "".
var hindrance = location.protocol === "file:" ? "Numbrela se abre desde un servidor web, no desde el disco."
    : isFit ? "" : unfitText;

function sayInstead(text) {
    document.getElementById("text").textContent = text;
}
if (hindrance !== "") {
    sayInstead(hindrance);
}

// The server lacks a script. Where the program cannot be started anyway, that is no news.
addEventListener("error", function (event) {
    if (event.target instanceof HTMLScriptElement && hindrance === "") {
        sayInstead(incompleteText);
    }
}, true);
