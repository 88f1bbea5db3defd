#include "capture/WindowImage.h"

#include <wincodec.h>

#include <vector>

namespace
{
// Releases a COM interface when it goes out of scope.
template <class T>
class CInterface
{
public:
    CInterface() : m_p(NULL) {}
    ~CInterface()
    {
        if (m_p != NULL)
            m_p->Release();
    }
    CInterface(const CInterface&) = delete;
    CInterface& operator=(const CInterface&) = delete;
    T* operator->() const { return m_p; }
    operator T*() const { return m_p; }
    T** operator&() { return &m_p; }

private:
    T* m_p;
};

// COM for the calling thread for as long as it lives, unless the thread has it already.
class CComScope
{
public:
    CComScope() : m_hr(CoInitializeEx(NULL, COINIT_APARTMENTTHREADED)) {}
    ~CComScope()
    {
        if (SUCCEEDED(m_hr))
            CoUninitialize();
    }
    // Another threading model on the thread still lets this thread use the encoder.
    bool IsReady() const { return SUCCEEDED(m_hr) || m_hr == RPC_E_CHANGED_MODE; }

private:
    HRESULT m_hr;
};
} // namespace

CWindowImage::CWindowImage()
    : m_hdc(NULL), m_hBitmap(NULL), m_hOldBitmap(NULL), m_pBits(NULL), m_nWidth(0), m_nHeight(0)
{
}

CWindowImage::~CWindowImage()
{
    Destroy();
}

void CWindowImage::Destroy()
{
    if (m_hdc != NULL)
    {
        SelectObject(m_hdc, m_hOldBitmap);
        DeleteDC(m_hdc);
    }
    if (m_hBitmap != NULL)
        DeleteObject(m_hBitmap);
    m_hdc = NULL;
    m_hBitmap = NULL;
    m_hOldBitmap = NULL;
    m_pBits = NULL;
    m_nWidth = m_nHeight = 0;
}

BOOL CWindowImage::CreateImage(int cx, int cy)
{
    Destroy();
    if (cx <= 0 || cy <= 0)
        return FALSE;
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = cx;
    info.bmiHeader.biHeight = -cy; // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* pBits = NULL;
    m_hBitmap = CreateDIBSection(NULL, &info, DIB_RGB_COLORS, &pBits, NULL, 0);
    m_hdc = m_hBitmap != NULL ? CreateCompatibleDC(NULL) : NULL;
    if (m_hdc == NULL)
    {
        Destroy();
        return FALSE;
    }
    m_hOldBitmap = SelectObject(m_hdc, m_hBitmap);
    m_pBits = static_cast<const DWORD*>(pBits);
    m_nWidth = cx;
    m_nHeight = cy;
    return TRUE;
}

BOOL CWindowImage::CreateCanvas(int cx, int cy, COLORREF clrFill)
{
    if (!CreateImage(cx, cy))
        return FALSE;
    HBRUSH hBrush = CreateSolidBrush(clrFill);
    RECT rc = {0, 0, cx, cy};
    FillRect(m_hdc, &rc, hBrush);
    DeleteObject(hBrush);
    return TRUE;
}

BOOL CWindowImage::Capture(HWND hWnd)
{
    Destroy();
    if (!IsWindow(hWnd))
        return FALSE;
    HWND hWndTop = GetAncestor(hWnd, GA_ROOT);
    bool bShown = !IsWindowVisible(hWndTop);
    if (bShown)
        ShowWindow(hWndTop, SW_SHOWNOACTIVATE);
    RedrawWindow(hWndTop, NULL, NULL, RDW_UPDATENOW | RDW_ALLCHILDREN);

    RECT rc;
    GetClientRect(hWnd, &rc);
    BOOL bOk = CreateImage(rc.right, rc.bottom);
    if (bOk)
    {
        HDC hdcWindow = ::GetDC(hWnd);
        bOk = BitBlt(m_hdc, 0, 0, m_nWidth, m_nHeight, hdcWindow, 0, 0, SRCCOPY);
        ReleaseDC(hWnd, hdcWindow);
        if (!bOk)
            Destroy();
    }
    if (bShown)
        ShowWindow(hWndTop, SW_HIDE);
    return bOk;
}

DWORD CWindowImage::PixelAt(int x, int y) const
{
    return m_pBits[y * m_nWidth + x] & 0xFFFFFF;
}

COLORREF CWindowImage::GetPixel(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_nWidth || y >= m_nHeight)
        return CLR_INVALID;
    GdiFlush();
    DWORD dwPixel = PixelAt(x, y);
    return RGB(dwPixel >> 16 & 0xFF, dwPixel >> 8 & 0xFF, dwPixel & 0xFF);
}

int CWindowImage::CountPixels(COLORREF clr, const RECT& rc) const
{
    RECT rcImage = {0, 0, m_nWidth, m_nHeight};
    RECT rcCount;
    if (!IntersectRect(&rcCount, &rc, &rcImage))
        return 0;
    GdiFlush();
    const DWORD dwWanted = static_cast<DWORD>(GetRValue(clr)) << 16 | static_cast<DWORD>(GetGValue(clr)) << 8 |
                           GetBValue(clr);
    int nCount = 0;
    for (int y = rcCount.top; y < rcCount.bottom; ++y)
    {
        for (int x = rcCount.left; x < rcCount.right; ++x)
            nCount += PixelAt(x, y) == dwWanted;
    }
    return nCount;
}

BOOL CWindowImage::SavePng(LPCSTR pszPath) const
{
    if (m_pBits == NULL || pszPath == NULL)
        return FALSE;
    int cchPath = MultiByteToWideChar(CP_ACP, 0, pszPath, -1, NULL, 0);
    if (cchPath <= 0)
        return FALSE;
    std::vector<WCHAR> path(cchPath);
    MultiByteToWideChar(CP_ACP, 0, pszPath, -1, path.data(), cchPath);
    GdiFlush();

    CComScope com;
    if (!com.IsReady())
        return FALSE;
    CInterface<IWICImagingFactory> pFactory;
    CInterface<IWICBitmap> pBitmap;
    CInterface<IWICStream> pStream;
    CInterface<IWICBitmapEncoder> pEncoder;
    CInterface<IWICBitmapFrameEncode> pFrame;
    CInterface<IPropertyBag2> pOptions;
    const UINT cbStride = static_cast<UINT>(m_nWidth) * sizeof(DWORD);
    // The DIB's fourth byte is unused, not alpha: the source is 32bppBGR, and the frame takes
    // 24-bit colour, converted on the way.
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    HRESULT hr = CoCreateInstance(CLSID_WICImagingFactory, NULL, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                  reinterpret_cast<void**>(&pFactory));
    if (SUCCEEDED(hr))
        hr = pFactory->CreateBitmapFromMemory(m_nWidth, m_nHeight, GUID_WICPixelFormat32bppBGR, cbStride,
                                              cbStride * m_nHeight,
                                              reinterpret_cast<BYTE*>(const_cast<DWORD*>(m_pBits)), &pBitmap);
    if (SUCCEEDED(hr))
        hr = pFactory->CreateStream(&pStream);
    if (SUCCEEDED(hr))
        hr = pStream->InitializeFromFilename(path.data(), GENERIC_WRITE);
    if (SUCCEEDED(hr))
        hr = pFactory->CreateEncoder(GUID_ContainerFormatPng, NULL, &pEncoder);
    if (SUCCEEDED(hr))
        hr = pEncoder->Initialize(pStream, WICBitmapEncoderNoCache);
    if (SUCCEEDED(hr))
        hr = pEncoder->CreateNewFrame(&pFrame, &pOptions);
    if (SUCCEEDED(hr))
        hr = pFrame->Initialize(pOptions);
    if (SUCCEEDED(hr))
        hr = pFrame->SetSize(m_nWidth, m_nHeight);
    if (SUCCEEDED(hr))
        hr = pFrame->SetPixelFormat(&format);
    if (SUCCEEDED(hr))
        hr = pFrame->WriteSource(pBitmap, NULL);
    if (SUCCEEDED(hr))
        hr = pFrame->Commit();
    if (SUCCEEDED(hr))
        hr = pEncoder->Commit();
    return SUCCEEDED(hr);
}
