/*
 * Serves the page without a network, always all files of one version. The build puts VERSION, which stands for the
 * content of all files, and FILES before this. A new version is fetched whole in the background and takes the old one's
 * place when no page of that is open any more.
 */

const CACHE = `mygame-${VERSION}`;

async function keepAll() {
  const cache = await caches.open(CACHE);
  const keep = async ({ name, integrity }) => {
    // Not what the browser kept: it may be of the version before.
    const response = await fetch(name, { cache: 'no-cache', integrity });
    if (!response.ok) throw new Error(name);
    await cache.put(name, response);
  };
  try {
    await Promise.all(FILES.map(keep));
  } catch (fault) {
    await caches.delete(CACHE);
    throw fault;
  }
}

async function forgetOthers() {
  const names = await caches.keys();
  const others = names.filter((name) => name.startsWith('mygame-') && name !== CACHE);
  await Promise.all(others.map((name) => caches.delete(name)));
}

async function answer(request) {
  const wanted = request.mode === 'navigate' ? 'index.html' : request;
  try {
    const cache = await caches.open(CACHE);
    return (await cache.match(wanted, { ignoreSearch: true })) ?? fetch(request);
  } catch {
    // Nothing is kept any more.
    return fetch(request);
  }
}

addEventListener('install', (event) => event.waitUntil(keepAll()));
addEventListener('activate', (event) => event.waitUntil(forgetOthers()));
addEventListener('fetch', (event) => {
  if (event.request.method === 'GET') event.respondWith(answer(event.request));
});
