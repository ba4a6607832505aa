// The search box and the marked place in the contents. Written for old browsers too.
(function () {
  "use strict";
  var query = document.getElementById("query");
  var hits = document.getElementById("hits");
  var contents = document.getElementById("contents");
  var titles = document.querySelectorAll("#book h2, #book h3, #book h4");
  var index = null;

  // Everything from a title to the next one, as {id, title, text}.
  function read() {
    var entries = [];
    Array.prototype.forEach.call(titles, function (title) {
      var text = [];
      for (var node = title.nextElementSibling; node && !isTitle(node); node = node.nextElementSibling) {
        if (node.className !== "entry") text.push(node.textContent);
      }
      entries.push({ id: title.id, title: clean(title.textContent), text: clean(text.join(" ")) });
    });
    return entries;
  }

  function isTitle(node) {
    return /^H[234]$/.test(node.tagName);
  }

  function clean(text) {
    return text.replace(/\s+/g, " ").trim();
  }

  // How well an entry answers the words; 0: not all of them stand in it.
  function rank(entry, words) {
    var title = entry.title.toLowerCase(), text = entry.text.toLowerCase(), sum = 0;
    for (var i = 0; i < words.length; i++) {
      var inTitle = title.indexOf(words[i]);
      if (inTitle < 0 && text.indexOf(words[i]) < 0) return 0;
      sum += inTitle === 0 ? 8 : inTitle > 0 ? 5 : 1;
    }
    return sum + (title === words.join(" ") ? 10 : 0);
  }

  function show() {
    var words = query.value.toLowerCase().split(/\s+/).filter(function (word) { return word; });
    contents.style.display = words.length ? "none" : "";
    hits.textContent = "";
    if (!words.length) return;
    index = index || read();
    var found = index.map(function (entry, place) {
      return { entry: entry, rank: rank(entry, words), place: place };
    }).filter(function (hit) { return hit.rank; });
    found.sort(function (a, b) { return b.rank - a.rank || a.place - b.place; });
    found.slice(0, 60).forEach(function (hit) { hits.appendChild(link(hit.entry, words)); });
    if (!found.length) hits.textContent = "Nothing found.";
  }

  function link(entry, words) {
    var a = document.createElement("a"), small = document.createElement("small");
    a.href = "#" + entry.id;
    mark(a, entry.title, words);
    mark(small, excerpt(entry.text, words), words);
    a.appendChild(small);
    return a;
  }

  function excerpt(text, words) {
    var at = text.toLowerCase().indexOf(words[0]);
    var from = at > 40 ? text.indexOf(" ", at - 40) + 1 : 0;
    return (from ? "… " : "") + text.substr(from, 110) + (text.length > from + 110 ? " …" : "");
  }

  // Puts a text into an element, with the words marked.
  function mark(into, text, words) {
    var escaped = words.map(function (word) { return word.replace(/[.*+?^${}()|[\]\\]/g, "\\$&"); });
    text.split(new RegExp("(" + escaped.join("|") + ")", "i")).forEach(function (piece, i) {
      var node = document.createElement(i % 2 ? "b" : "span");
      node.textContent = piece;
      into.appendChild(node);
    });
  }

  query.addEventListener("input", show);
  document.getElementById("search-form").addEventListener("submit", function (event) {
    event.preventDefault();
    var first = hits.querySelector("a");
    if (first) location.hash = first.getAttribute("href");
  });
  document.addEventListener("keydown", function (event) {
    var typing = event.target === query;
    if (event.key === "/" && !typing || event.key === "k" && event.ctrlKey) {
      event.preventDefault();
      query.focus();
      query.select();
    } else if (typing && (event.key === "Escape" || event.key === "Esc")) {
      query.value = "";
      show();
    }
  });

  // The program asks for the search by this place, which is nowhere on the page.
  function arrive() {
    if (location.hash === "#search") query.focus();
  }
  window.addEventListener("hashchange", arrive);
  arrive();

  // The title that one reads is marked in the contents.
  var places = Array.prototype.map.call(contents.querySelectorAll("a"), function (a) {
    return { link: a, title: document.getElementById(a.getAttribute("href").slice(1)) };
  });
  var here = null, waits = false;
  function follow() {
    waits = false;
    var last = null;
    for (var i = 0; i < places.length && places[i].title.getBoundingClientRect().top < 120; i++) last = places[i].link;
    if (last === here) return;
    if (here) here.className = "";
    if (last) last.className = "here";
    here = last;
    if (last && contents.style.display === "") keepInView(last);
  }
  function keepInView(link) {
    var nav = document.getElementById("nav"), box = link.getBoundingClientRect();
    if (nav.scrollHeight <= nav.clientHeight) return;
    if (box.top < 60 || box.bottom > nav.clientHeight - 20) nav.scrollTop += box.top - nav.clientHeight / 2;
  }
  window.addEventListener("scroll", function () {
    if (!waits) window.setTimeout(follow, 60);
    waits = true;
  });
  follow();
})();
